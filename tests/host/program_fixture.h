// The built program with the real module beside it, as people and other programs use it.
#pragma once

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <vector>

#include "host/json_text.h"

namespace ovaline::host::testing {

namespace fs = std::filesystem;

struct Outcome {
    int status;
    std::string out;
    std::string error;
};

/// Each test has a working folder and a registry of its own, in which the control is registered.
class ProgramTest : public ::testing::Test {
protected:
    void SetUp() override {
        std::string folder = (fs::temp_directory_path() / "ovaline-program-XXXXXX").string();
        ASSERT_TRUE(mkdtemp(folder.data()));
        root_ = folder;
        folder_ = root_ / "work";
        fs::create_directory(folder_);
        registry_ = root_ / "registry.reg";
        setenv("OVALINE_REGISTRY", registry_.c_str(), 1);
        ASSERT_EQ(run("register").status, 0);
    }
    void TearDown() override { fs::remove_all(root_); }

    std::string text(const std::string& name) const {
        std::ifstream file(folder_ / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    std::vector<std::string> files() const {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(folder_)) names.push_back(entry.path().filename().string());
        std::ranges::sort(names);
        return names;
    }

    /// Runs the program in the test's folder. `arguments` are words of a shell.
    Outcome run(const std::string& arguments, const std::string& input = {}) {
        const fs::path files[] = {folder_ / ".in", folder_ / ".out", folder_ / ".error"};
        std::ofstream(files[0], std::ios::binary) << input;
        const std::string command =
            "cd '" + folder_.string() + "' && '" OVALINE_PROGRAM "' " + arguments + " <.in >.out 2>.error";
        const int status = std::system(command.c_str());
        Outcome outcome{WIFEXITED(status) ? WEXITSTATUS(status) : -1, text(".out"), text(".error")};
        for (const fs::path& file : files) fs::remove(file);
        return outcome;
    }

    /// The answers to the lines of a run.
    std::vector<Json> answers(const std::string& lines) {
        std::istringstream out(run("run", lines).out);
        std::vector<Json> answers;
        for (std::string line; std::getline(out, line);) answers.push_back(parseJson(line));
        return answers;
    }

    fs::path root_;
    fs::path folder_;
    fs::path registry_;
};

}  // namespace ovaline::host::testing
