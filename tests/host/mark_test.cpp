// The mark command over a fake control: jobs, files, runs.
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <random>

#include "fake_control.h"
#include "host/commands.h"
#include "host/failure.h"
#include "host/job.h"
#include "host/marking_session.h"
#include "host/output_file.h"

namespace ovaline::host {
namespace {

namespace fs = std::filesystem;
using testing::fake;
using testing::fakeModule;
using testing::streamOf;

class MarkTest : public ::testing::Test {
protected:
    void SetUp() override {
        fake() = {};
        fake().stream = streamOf({{'u', 0, 0}, {'d', 5, 5}, kEndRecord});
        fake().askedSize = 1000;
        folder_ = fs::temp_directory_path() / ("ovaline-mark-" + std::to_string(std::random_device()()));
        ASSERT_TRUE(fs::create_directory(folder_));
    }
    void TearDown() override {
        EXPECT_EQ(fake().alive, 0);
        fs::remove_all(folder_);
    }

    std::string write(const std::string& name, const std::string& text) {
        std::ofstream(folder_ / name, std::ios::binary) << text;
        return (folder_ / name).string();
    }
    std::vector<std::string> files() const {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(folder_)) names.push_back(entry.path().filename().string());
        std::ranges::sort(names);
        return names;
    }
    MarkOptions options(const std::string& output) const {
        MarkOptions options;
        options.output = (folder_ / output).string();
        options.quiet = true;
        return options;
    }

    fs::path folder_;
};

using Files = std::vector<std::string>;

/// "NAME=value" of a job's settings, in order.
Files settingsOf(const Job& job) {
    Files settings;
    for (const Setting& setting : job.settings) {
        std::string text(setting.property->name);
        text += "=";
        appendValue(text, setting.value[0]);
        settings.push_back(text);
    }
    return settings;
}

TEST_F(MarkTest, SettingsKeepTheirOrderAndTheLastOneCounts) {
    const std::string file = write("job.json", R"({"measurement": "inch", "settings":
        {"FontStyle": "SingleStroke", "Width": 40, "FontName": "Arial", "FontBold": true, "TextData": "a=b"}})");
    const Job job = readJob({file, {"Width=50.5", "FillStyle=Cross", "CustomAutoText=x=1", "FontBold=0"}, "-5 \"]"});
    EXPECT_TRUE(job.inches);
    EXPECT_EQ(settingsOf(job), (Files{"FontStyle=1", "FontName=\"Arial\"", "Width=50.5", "FillStyle=3",
                                      "CustomAutoText=\"x=1\"", "FontBold=0", "TextData=\"-5 \\\"]\""}));
}

TEST_F(MarkTest, JobsThatAreNotUnderstoodNameTheCulprit) {
    const std::pair<const char*, const char*> cases[] = {
        {"{", "syntax error"},
        {R"({"settings": []})", "settings"},
        {R"({"setings": {}})", "setings"},
        {R"({"measurement": "cm"})", "measurement"},
        {R"({"settings": {"Widht": 1}})", "Widht"},
        {R"({"settings": {"Width": "1"}})", "Width takes a number"},
        {R"({"settings": {"Width": 1e300}})", "Width takes a finite number"},
        {R"({"settings": {"Width": 1, "Width": 2}})", "twice"},
    };
    for (const auto& [text, expected] : cases) {
        const std::string file = write("job.json", text);
        try {
            readJob({file, {}, {}});
            ADD_FAILURE() << text;
        } catch (const Failure& failure) {
            const std::string reason = failure.what();
            EXPECT_TRUE(reason.starts_with(file)) << reason;
            EXPECT_NE(reason.find(expected), std::string::npos) << reason;
        }
    }
    for (const char* assignment : {"Width", "Width=", "Width=1,5", "Width=[1]", "FillStyle=cross", "Nothing=1"})
        EXPECT_THROW(readJob({{}, {assignment}, {}}), Failure) << assignment;
    EXPECT_THROW(readJob({folder_, {}, {}}), Failure);
    EXPECT_THROW(readJob({{}, {}, "\xFF"}), Failure);
}

TEST_F(MarkTest, StreamFileIsByteForByte) {
    EXPECT_EQ(markCommand(options("a.ovl"), fakeModule), 0);
    std::ifstream file(folder_ / "a.ovl", std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    ASSERT_EQ(bytes.size(), fake().stream.size());
    EXPECT_EQ(std::memcmp(bytes.data(), fake().stream.data(), bytes.size()), 0);
    EXPECT_EQ(files(), Files{"a.ovl"});
}

TEST_F(MarkTest, BufferGrowsWhereTheEstimateIsTooSmall) {
    std::vector<VectorRecord> records(1000, VectorRecord{'d', 1, 1});
    records.front().code = 'u';
    records.push_back(kEndRecord);
    fake().stream = streamOf(records);
    fake().askedSize = 0;
    EXPECT_EQ(markCommand(options("a.ovl"), fakeModule), 0);
    EXPECT_EQ(fs::file_size(folder_ / "a.ovl"), fake().stream.size());
    fake().sizes.clear();
    fake().askedSize = 0xFFFFFFFF;
    EXPECT_EQ(markCommand(options("a.ovl"), fakeModule), 0);
    EXPECT_EQ(fake().sizes, (std::vector<std::size_t>{64 << 20}));
}

TEST_F(MarkTest, FaultyControlLeavesNoFile) {
    fake().overrun = 1;
    EXPECT_THROW(markCommand(options("a.ovl"), fakeModule), Failure);
    fake().overrun = 0;
    fake().stream.resize(fake().stream.size() - kVectorRecordSize);
    EXPECT_THROW(markCommand(options("a.ovl"), fakeModule), Failure);
    for (const int rows : {0, 100}) {  // nothing to see, and more than the control gave
        fake().raster = {static_cast<std::byte>(rows), std::byte{}, std::byte{9}, std::byte{}};
        EXPECT_THROW(markCommand(options("a.pbm"), fakeModule), Failure);
    }
    fake().increment = E_NOTIMPL;
    MarkOptions three = options("part.ovl");
    three.advance = 3;
    fake().stream = streamOf({kEndRecord});
    EXPECT_THROW(markCommand(three, fakeModule), Failure);
    EXPECT_EQ(files(), Files{});
}

TEST_F(MarkTest, RunsAreNumberedAndTheSerialNumberMovesOnAfterEach) {
    MarkOptions three = options("part.svg");
    three.advance = 3;
    EXPECT_EQ(markCommand(three, fakeModule), 0);
    EXPECT_EQ(files(), (Files{"part-1.svg", "part-2.svg", "part-3.svg"}));
    EXPECT_EQ(fake().increments, 3);
}

TEST_F(MarkTest, FilesAreReplacedWholeOrLeftAlone) {
    const fs::path target = write("a.txt", "old"), link = folder_ / "link";
    std::error_code failed;  // links can't be made everywhere
    fs::create_symlink(target, link, failed);
    for (const bool commit : {false, true}) {
        {
            OutputFile file(failed ? target : link);
            file.append("newer");
            file.close();
            if (commit) file.commit();
        }
        EXPECT_EQ(fs::file_size(target), commit ? 5u : 3u);
    }
    EXPECT_EQ(fs::is_symlink(link), !failed);
    EXPECT_EQ(files().size(), failed ? 1u : 2u);
}

TEST_F(MarkTest, ARasterIsWrittenFromItsTopRow) {
    for (const int byte : {2, 0, 9, 0, 0x11, 0x80, 0x22, 0x00}) fake().raster.push_back(static_cast<std::byte>(byte));
    ASSERT_EQ(markCommand(options("a.pbm"), fakeModule), 0);
    std::ifstream file(folder_ / "a.pbm", std::ios::binary);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(file), {}), std::string("P4\n9 2\n\x22\x00\x11\x80", 11));
}

TEST_F(MarkTest, SettingsThatTheControlHoldsDifferentlyAreTold) {
    // The fake holds what it gets, so the font is all that can differ.
    MarkingSession same(fakeModule(), readJob({{}, {"Width=40", "FontName=No Such Font"}, "A"}));
    EXPECT_EQ(fake().regenerations, 1) << "for all settings";
    const std::vector<std::string> warnings = same.warnings();
    ASSERT_EQ(warnings.size(), 1u);
    EXPECT_NE(warnings[0].find("No Such Font"), std::string::npos);
}

}  // namespace
}  // namespace ovaline::host
