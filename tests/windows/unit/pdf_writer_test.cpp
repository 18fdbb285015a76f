// PDF on a system whose fonts cairo does not guard: several documents at a time, one inside
// another.
#include "adapters/output/formats/pdf_writer.h"

#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <thread>
#include <vector>

#include "adapters/output/files/named_files.h"

namespace kelvane::output {
namespace {

constexpr int kPages = 5;

class Pages : public platform::PageSource {
public:
    std::string Title() const override { return "项目期初录入"; }
    int PageWidth() const override { return 2100; }
    int PageHeight() const override { return 2970; }
    int PageCount() const override { return kPages; }
    platform::Page MakePage(int number) const override {
        platform::Page page;
        for (int line = 0; line < 30; ++line) {
            platform::PageText text;
            text.text = "机场滑行道加固 " + std::to_string(number * line);
            text.box = {150, 150 + line * 60, 900, 50};
            text.size = 60 + line;
            text.bold = line % 2 == 0;
            page.texts.push_back(text);
        }
        return page;
    }
};

// What the operator has the thread do while the progress of a document is shown.
class Interrupted : public NamedFiles {
public:
    explicit Interrupted(std::function<void()> work)
        : NamedFiles([](const auto&) { return std::nullopt; }), mWork(std::move(work)) {}
    std::unique_ptr<platform::Progress> StartProgress(const std::string& /*title*/) override {
        mWork();
        return nullptr;
    }

private:
    std::function<void()> mWork;
};

// On this clock every look at it takes a second.
WorkMeter::Clock::time_point SlowNow() {
    static WorkMeter::Clock::time_point now;
    return now += std::chrono::seconds(1);
}

class PdfWriterTest : public testing::Test {
protected:
    PdfWriterTest() {
        std::filesystem::remove_all(mFolder);
        std::filesystem::create_directory(mFolder);
    }
    ~PdfWriterTest() override { std::filesystem::remove_all(mFolder); }

    // The document's bytes up to when it was made, which is at its end.
    std::string Write(const std::string& name, WorkMeter meter = {nullptr, {}, kPages}) const {
        const std::filesystem::path path = mFolder / name;
        {
            SafeFile file(path.string());
            WritePdf(Pages(), file, meter);
            file.Finish();
        }
        std::ifstream stream(path, std::ios::binary);
        const std::string bytes{std::istreambuf_iterator<char>(stream), {}};
        const std::size_t made = bytes.find("/CreationDate");
        EXPECT_NE(made, std::string::npos);
        return bytes.substr(0, made);
    }

    std::filesystem::path mFolder = std::filesystem::temp_directory_path() / "kelvane-pdf-test";
};

TEST_F(PdfWriterTest, SeveralThreadsWriteTheSameAsOne) {
    const std::string alone = Write("alone.pdf");
    ASSERT_TRUE(alone.starts_with("%PDF-"));
    ASSERT_GT(alone.size(), 5000U);
    std::array<std::string, 4> written;
    std::vector<std::thread> threads;
    for (std::size_t at = 0; at < written.size(); ++at) {
        threads.emplace_back([&, at] { written[at] = Write(std::to_string(at) + ".pdf"); });
    }
    for (std::thread& thread : threads) thread.join();
    for (const std::string& bytes : written) EXPECT_TRUE(bytes == alone);
}

TEST_F(PdfWriterTest, ADocumentIsWrittenWhileAnotherOneIs) {
    const std::string alone = Write("alone.pdf");
    std::vector<std::string> inner;
    Interrupted surroundings(
        [&] { inner.push_back(Write("inner" + std::to_string(inner.size()) + ".pdf")); });
    EXPECT_TRUE(Write("outer.pdf", {&surroundings, "", kPages, SlowNow}) == alone);
    ASSERT_EQ(inner.size(), static_cast<std::size_t>(kPages));
    for (const std::string& bytes : inner) EXPECT_TRUE(bytes == alone);
}

}  // namespace
}  // namespace kelvane::output
