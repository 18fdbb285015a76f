#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include "adapters/output/formats/table_export.h"
#include "adapters/output/formats/xlsx_check.h"
#include "adapters/output/formats/xml_parser.h"
#include "tests/unit/host/temporary_folder.h"
#include "tests/unit/output/recording_surroundings.h"
#include "tests/unit/output/sample_sheet.h"

namespace kelvane::output_test {

using host_test::ReadText;
using host_test::TemporaryFolder;
using host_test::WriteText;
using output::Export;
using output::SafeFile;

namespace {

Export ExportOf(const std::string& dataText) {
    Export data;
    data.title = "项目期初录入";
    data.columns = SampleColumns();
    data.shown = {1, 2, 3};
    data.dataText = dataText;
    return data;
}

std::string Written(void (*write)(const Export&, SafeFile&), const std::string& dataText) {
    const TemporaryFolder folder;
    SafeFile file((folder / "a").string());
    write(ExportOf(dataText), file);
    file.Finish();
    return ReadText(folder / "a");
}

std::string CsvOf(const std::string& dataText) {
    static const std::string head = "\xEF\xBB\xBF\"日期\",\"项目名称\",\"未结转期初\"\r\n";
    const std::string written = Written(output::WriteCsv, dataText);
    return written.starts_with(head) ? written.substr(head.size()) : "no head: " + written;
}

TEST(CsvWriter, WritesNumbersPlainAndEverythingElseInQuotes) {
    EXPECT_EQ(CsvOf("\t2004-06-01\t一号楼\t1,234.50\n\t\t007\t-5.00\n"),
              "\"2004-06-01\",\"一号楼\",1234.50\r\n\"\",\"007\",-5.00\r\n");
}

TEST(CsvWriter, QuotesByTheRules) {
    EXPECT_EQ(CsvOf("\t\ta,b\t\n\t\t5\" \"x\"\t\n"),
              "\"\",\"a,b\",\"\"\r\n\"\",\"5\"\" \"\"x\"\"\",\"\"\r\n");
}

TEST(CsvWriter, LetsNoTextBecomeAFormula) {
    for (const std::string start : {"=", "+", "-", "@", "＝", "＋", "－", "＠"}) {
        EXPECT_EQ(CsvOf("\t\t" + start + "1+1\t\n"), "\"\",\"'" + start + "1+1\",\"\"\r\n");
    }
    EXPECT_EQ(CsvOf("\t\t=\"a\",b\t\n"), "\"\",\"'=\"\"a\"\",b\",\"\"\r\n");
    // What a wide character shares its first bytes with is none.
    EXPECT_EQ(CsvOf("\t\t，a=\t\n"), "\"\",\"，a=\",\"\"\r\n");
    // What stands in a column of numbers but is none.
    EXPECT_EQ(CsvOf("\t\t\t=1\n"), "\"\",\"\",\"'=1\"\r\n");
    EXPECT_EQ(CsvOf("\t\t\t-1\n"), "\"\",\"\",-1\r\n");
}

TEST(CsvWriter, LetsNoTitleBecomeAFormula) {
    for (const std::string title : {"=cmd", "\tcmd", "\rcmd", "\ncmd", "＝cmd"}) {
        Export data = ExportOf("");
        data.columns[2].title = title;
        const TemporaryFolder folder;
        SafeFile file((folder / "a").string());
        output::WriteCsv(data, file);
        file.Finish();
        EXPECT_EQ(ReadText(folder / "a"),
                  "\xEF\xBB\xBF\"日期\",\"'" + title + "\",\"未结转期初\"\r\n");
    }
}

TEST(XmlWriter, WritesColumnsAndRows) {
    EXPECT_EQ(Written(output::WriteXml, "\t2004.6.1\t<&\"一\x01\t1,234.50\n"),
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
              "<表 标题=\"项目期初录入\">\n"
              "  <列 名称=\"日期\" 类型=\"日期\"/>\n"
              "  <列 名称=\"项目名称\" 类型=\"文本\"/>\n"
              "  <列 名称=\"未结转期初\" 类型=\"数字\"/>\n"
              "  <行><格>2004-06-01</格><格>&lt;&amp;&quot;一\uFFFD</格><格>1234.50</格></行>\n"
              "</表>\n");
}

TEST(XmlWriter, WritesADocumentWhateverTheTexts) {
    EXPECT_TRUE(output::IsReadableXml(
        Written(output::WriteXml, "\t\xFF\xC3(\t]]>\v\f\x1B\t\xED\xA0\x80\n")));
}

std::string Rows(int count) {
    std::string text;
    for (int row = 0; row < count; ++row) {
        platform::AppendRow(text, "\t2004-06-01\t项目" + std::to_string(row * 7919) + "\t1,234.50");
    }
    return text;
}

// Writes a spreadsheet as long as no file may grow beyond `limit` bytes. Returns how that ended.
std::string WrittenWithin(rlim_t limit, int rows) {
    const TemporaryFolder folder;
    const std::string path = (folder / "a.xlsx").string();
    WriteText(path, "old");
    const std::string text = Rows(rows);
    const pid_t child = fork();
    if (child == 0) {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit small{limit, limit};
        setrlimit(RLIMIT_FSIZE, &small);
        // What is said on the way is nobody's concern.
        if (freopen("/dev/null", "w", stderr) == nullptr) _exit(3);
        try {
            SafeFile file(path);
            output::WriteXlsx(ExportOf(text), file);
            file.Finish();
            _exit(0);
        } catch (const output::FileFailure&) {
            _exit(1);
        }
    }
    int status = 0;
    waitpid(child, &status, 0);
    if (!WIFEXITED(status)) return "crashed";
    const bool old = ReadText(path) == "old";
    return std::string(WEXITSTATUS(status) == 0 ? "written" : "failed") + (old ? ", old file" : "");
}

TEST(XlsxWriter, WritesNoIncompleteFileWhenTheDiskIsFull) {
    constexpr rlim_t kKilobyte = 1024;
    for (const int rows : {1'000, 6'000}) {
        EXPECT_EQ(WrittenWithin(RLIM_INFINITY, rows), "written");
        for (const rlim_t kilobytes : {1, 4, 16, 33, 60}) {
            EXPECT_EQ(WrittenWithin(kilobytes * kKilobyte, rows), "failed, old file")
                << rows << " rows in " << kilobytes;
        }
    }
}

TEST(XlsxWriter, RefusesMoreRowsThanASpreadsheetHas) {
    const TemporaryFolder folder;
    const std::string text(1'048'576, '\n');
    SafeFile file((folder / "a.xlsx").string());
    EXPECT_THROW(output::WriteXlsx(ExportOf(text), file), output::FileFailure);
}

TEST(XlsxCheck, FindsAnArchiveThatIsCutShort) {
    const TemporaryFolder folder;
    SafeFile file((folder / "a.xlsx").string());
    output::WriteXlsx(ExportOf(Rows(100)), file);
    EXPECT_NO_THROW(output::CheckXlsx(file));
    std::filesystem::resize_file(file.Draft(), std::filesystem::file_size(file.Draft()) / 2);
    EXPECT_THROW(output::CheckXlsx(file), output::FileFailure);
}

TEST(WorkMeter, ShowsNothingBeforeASecond) {
    static output::WorkMeter::Clock::time_point now;
    RecordingSurroundings surroundings;
    std::vector<std::size_t> shown;
    surroundings.goesOn = [&](std::size_t done, std::size_t total) {
        EXPECT_EQ(total, 10U);
        shown.push_back(done);
        return done < 4;
    };
    output::WorkMeter meter(&surroundings, "正在输出到文件…", 10, [] { return now; });
    meter.Step();
    now += std::chrono::milliseconds(999);
    meter.Step();
    EXPECT_THAT(surroundings.progressTitles, testing::IsEmpty());
    now += std::chrono::milliseconds(1);
    meter.Step();
    EXPECT_THAT(surroundings.progressTitles, testing::ElementsAre("正在输出到文件…"));
    now += std::chrono::seconds(1);
    EXPECT_THROW(meter.Step(), output::WorkCancelled);
    EXPECT_THAT(shown, testing::ElementsAre(3, 4));
}

}  // namespace

}  // namespace kelvane::output_test
