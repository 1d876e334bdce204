// Registering, finding the module through the registry, and the lines of a run that are about it.
#include <cstdint>

#include "program_fixture.h"

namespace ovaline::host {
namespace {

using testing::Outcome;

const std::string kClass = R"(HKEY_CLASSES_ROOT\\CLSID\\{6F0E2C44-9B7D-4E53-A164-3C58D2907E11})";

class RegistrationTest : public testing::ProgramTest {
protected:
    std::string registryText() const {
        std::ifstream file(registry_, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    void writeRegistry(const std::string& text) const { std::ofstream(registry_, std::ios::binary) << text; }
    /// Replaces a text where it first stands in the registry.
    void replace(const std::string& from, const std::string& to) const {
        std::string text = registryText();
        ASSERT_NE(text.find(from), std::string::npos);
        writeRegistry(text.replace(text.find(from), from.size(), to));
    }
    /// The error of a command that needs a control, and does what it should all the same.
    std::string errorOfUse() {
        const Outcome outcome = run("run", "{\"get\": \"TextData\"}\n{\"get\": \"Width\", \"on\": \"other\"}\n");
        EXPECT_EQ(outcome.status, 0);
        EXPECT_TRUE(outcome.out.starts_with(R"({"hr": 0, "value": )")) << outcome.out;
        return outcome.error;
    }
    const std::string module_ = (testing::fs::path(OVALINE_PROGRAM).parent_path() / "Norvel_Ovaline.so").string();
};

TEST_F(RegistrationTest, CommandsSayWhatTheyDidWhere) {
    EXPECT_EQ(errorOfUse(), "");
    EXPECT_EQ(run("unregister").out, "unregistered " + module_ + " in " + registry_.string() + "\n");
    EXPECT_EQ(registryText().find("6F0E2C4"), std::string::npos) << registryText();
    EXPECT_EQ(run("register").out, "registered " + module_ + " in " + registry_.string() + "\n");
    EXPECT_NE(registryText().find("\"" + module_ + "\""), std::string::npos);
}

TEST_F(RegistrationTest, FirstUseRegistersAndSaysSoOnce) {
    testing::fs::remove(registry_);
    const std::string said = ", registered " + module_ + " in " + registry_.string() + "\n";
    EXPECT_EQ(errorOfUse(), "ovaline: no control was registered" + said);
    EXPECT_EQ(errorOfUse(), "");
    replace(module_, "/none.so");
    EXPECT_EQ(errorOfUse(), "ovaline: the registered module /none.so is gone" + said);
    EXPECT_EQ(errorOfUse(), "");
}

TEST_F(RegistrationTest, TheModuleBesideTheProgramComesFirst) {
    const testing::fs::path alone = root_ / "alone";
    testing::fs::copy_file(OVALINE_PROGRAM, alone);
    const std::string command = "'" + alone.string() + "' properties >'" + (folder_ / "list").string() + "' 2>&1";
    EXPECT_EQ(std::system(command.c_str()), 0) << "without one the registered module is used";
    EXPECT_EQ(text("list"), run("properties").out);

    const std::string broken = (root_ / "other.so").string();
    std::ofstream(broken) << "no module";
    replace(module_, broken);
    const std::string registered = registryText();
    EXPECT_EQ(errorOfUse(), "");
    EXPECT_EQ(registryText(), registered);
    EXPECT_NE(std::system(command.c_str()), 0);
    EXPECT_NE(text("list").find("the control's module does not load"), std::string::npos) << text("list");

    const std::string key = "[HKEY_CLASSES_ROOT\\Norvel_Ovaline.Norvel_OvalineCtrl\\CLSID]\n@=\"{";
    replace(key, key + "0");
    const std::string other = registryText();
    EXPECT_NE(errorOfUse().find("leads to another class"), std::string::npos);
    EXPECT_EQ(registryText(), other) << "left alone";
}

TEST_F(RegistrationTest, ARegistryThatCannotBeWrittenStopsNoMarking) {
    setenv("OVALINE_REGISTRY", (registry_ / "under-a-file.reg").c_str(), 1);
    const std::string error = errorOfUse();
    EXPECT_NE(error.find("the module beside the program is used"), std::string::npos) << error;
    EXPECT_EQ(std::ranges::count(error, '\n'), 1) << error;
    EXPECT_EQ(run("register").status, 2);
    EXPECT_EQ(run("unregister").status, 2);
    EXPECT_EQ(parseJson(run("run", "{\"register\": true}").out)["hr"].get<std::int32_t>() < 0, true);
}

TEST_F(RegistrationTest, ADamagedRegistryIsNamedAndLeftAsItIs) {
    const std::string damaged = registryText() + "[HKEY_CLASSES_ROOT\\x\n";
    writeRegistry(damaged);
    const std::string expected = registry_.string() + " is damaged, line ";
    EXPECT_NE(errorOfUse().find("warning: " + expected), std::string::npos);
    EXPECT_EQ(run("register").error.find("ovaline: " + expected), 0u);
    const Outcome lines = run("run",
                              "{\"lang\": 25}\n{\"register\": true}\n{\"registry\": \"HKEY_CLASSES_ROOT\", "
                              "\"list\": true}\n");
    EXPECT_EQ(lines.status, 1);
    EXPECT_NE(lines.out.find("{\"error\": \"" + expected), std::string::npos);
    EXPECT_NE(lines.out.find("{\"hr\": -2147023887}"), std::string::npos) << lines.out;
    EXPECT_EQ(registryText(), damaged);
}

TEST_F(RegistrationTest, LinesOfARun) {
    const std::pair<std::string, std::string> lines[] = {
        {R"({"register": false})", R"({"hr": 0})"},
        {R"({"registry": ")" + kClass + R"(", "list": true})", R"({"hr": 0, "keys": null, "names": null})"},
        {R"({"registry": "HKEY_CLASSES_ROOT", "list": true})",
         R"({"hr": 0, "keys": ["AppID", "CLSID", "TypeLib"], "names": []})"},
        {R"({"register": true})", R"({"hr": 0})"},
        {R"({"registry": ")" + kClass + R"(\\InprocServer32", "name": ""})",
         R"({"hr": 0, "value": ")" + module_ + R"("})"},
        {R"({"registry": ")" + kClass + R"(\\InprocServer32", "list": true})",
         R"({"hr": 0, "keys": [], "names": [""]})"},
        {R"({"lang": 4294967295})", R"({"hr": 0})"},
        {R"({"registry": "HKEY_CURRENT_USER\\Software\\Norvel\\Host", "name": "Lang"})",
         R"({"hr": 0, "value": 4294967295})"},
        {R"({"lang": null})", R"({"hr": 0})"},
        {R"({"lang": null})", R"({"hr": 0})"},
        {R"({"registry": "HKEY_CURRENT_USER\\Software\\Norvel\\Host", "name": "Lang"})", R"({"hr": 0, "value": null})"},
    };
    std::string input, expected;
    for (const auto& [line, answer] : lines) {
        input += line + "\n";
        expected += answer + "\n";
    }
    const Outcome outcome = run("run", input);
    EXPECT_EQ(outcome.out, expected);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.error, "");
}

TEST_F(RegistrationTest, ManyFirstUsesAtOnce) {
    testing::fs::remove(registry_);
    const std::string one = "'" OVALINE_PROGRAM "' properties >list$i 2>/dev/null & ";
    const std::string command = "cd '" + folder_.string() + "' && for i in 1 2 3 4 5 6; do " + one + " done; wait";
    EXPECT_EQ(std::system(command.c_str()), 0);
    for (const std::string& file : files()) EXPECT_EQ(text(file), text("list1")) << file;
    EXPECT_EQ(files().size(), 6u);
    EXPECT_EQ(errorOfUse(), "");
}

}  // namespace
}  // namespace ovaline::host
