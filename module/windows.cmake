# What the module is made of besides on Windows: its list of exports, its resources and, among them, the type library.
# The system's standard types, which the type library refers to; the package of the Windows emulator brings them.
file(GLOB standard_types /usr/lib/*/wine/*-windows/stdole2.tlb)
list(GET standard_types 0 standard_types)
get_filename_component(standard_types ${standard_types} DIRECTORY)

set(interface ${CMAKE_CURRENT_BINARY_DIR}/Norvel_OvalineLib)
add_custom_command(
  OUTPUT ${interface}.tlb
  # The interface's operations are included from the code's own list of them.
  COMMAND ${CMAKE_CXX_COMPILER} -E -P -xc -I${PROJECT_SOURCE_DIR} ${CMAKE_CURRENT_SOURCE_DIR}/Norvel_OvalineLib.idl
    -o ${interface}.idl
  COMMAND ${OVALINE_IDL_COMPILER} -t -I${CMAKE_CURRENT_SOURCE_DIR} -L${standard_types} -o ${interface}.tlb
    ${interface}.idl
  DEPENDS Norvel_OvalineLib.idl automation_types.idl ${PROJECT_SOURCE_DIR}/control/interface/members.inc
  VERBATIM)

target_sources(Norvel_Ovaline PRIVATE Norvel_Ovaline.rc Norvel_Ovaline.def)
set_source_files_properties(Norvel_Ovaline.rc PROPERTIES
  INCLUDE_DIRECTORIES ${CMAKE_CURRENT_BINARY_DIR}
  OBJECT_DEPENDS "${interface}.tlb;${CMAKE_CURRENT_SOURCE_DIR}/toolbox.bmp;${OVALINE_RESOURCE_SOURCES}")
