"""imports.py OBJDUMP MODULE PROGRAM: what the built files need of the system and offer it, by their own tables."""
import re
import subprocess
import sys

# What every supported system has.
SYSTEM = {"advapi32.dll", "comctl32.dll", "comdlg32.dll", "gdi32.dll", "gdiplus.dll", "kernel32.dll", "msvcrt.dll",
          "ole32.dll", "oleaut32.dll", "shell32.dll", "user32.dll"}
EXPORTS = ["DllCanUnloadNow", "DllGetClassObject", "DllRegisterServer", "DllUnregisterServer"]


def main(objdump, module, program):
    wrong = []
    for file in module, program:
        table = subprocess.run([objdump, "-p", file], check=True, capture_output=True, text=True).stdout
        imported = {name.lower() for name in re.findall(r"DLL Name: (\S+)", table)}
        if "kernel32.dll" not in imported:
            wrong.append(f"{file}: no import table was read")
        wrong += [f"{file} needs {name}" for name in sorted(imported - SYSTEM)]
        if file == module:
            exported = re.findall(r"^\s+\[\s*\d+\] (?:\+base\[\s*\d+\] +[0-9a-f]+ )?(\S+)$", table, re.MULTILINE)
            if exported != EXPORTS:
                wrong.append(f"{file} exports {exported}")
    print("\n".join(wrong) or "nothing but the system is needed, and four exports are offered")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
