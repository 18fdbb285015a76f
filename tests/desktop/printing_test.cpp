// The system's own file and print dialogs, worked by real keys, and what comes of them.
#include <gtest/gtest.h>
#include <libintl.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <future>

#include "platform/print_surroundings.h"
#include "tests/desktop/person.h"
#include "tests/desktop/sample_forms.h"
#include "tests/desktop/sample_pages.h"

namespace kelvane::test {

namespace {

namespace fs = std::filesystem;

const platform::FileQuestion kQuestion{
    "输出到文件", "期初 2024.12.xlsx", {{"Excel 工作簿", "xlsx"}, {"文本", "csv"}}};

// A folder that is the current one while the test runs: the same for every test, for the system's
// dialogs begin in the last one's.
class DesktopPrinting : public testing::Test {
protected:
    DesktopPrinting() {
        fs::remove_all(mFolder);
        fs::create_directories(mFolder);
        fs::current_path(mFolder);
    }
    ~DesktopPrinting() override {
        fs::current_path(mBefore);
        fs::remove_all(mFolder);
    }

    std::string PathOf(const std::string& name) const { return (mFolder / name).string(); }

    using Ask = std::optional<std::string> (platform::PrintSurroundings::*)(
        const platform::FileQuestion& question);

    // What the operator chooses when `deeds` is done at the file dialog.
    std::optional<std::string> Choose(const std::function<void(Person&)>& deeds,
                                      Ask ask = &platform::PrintSurroundings::ChooseFile) {
        std::optional<std::string> chosen;
        ListForm form;
        form.toolbar.ButtonClick = [&](controls::ToolbarButton&) {
            chosen = (Windows().Printing().*ask)(kQuestion);
            form.Unload();
        };
        ShowTo(form, [&](Person& person) {
            Windows().Post([&] { form.toolbar.ButtonClick(*form.toolbar.Button("Print")); });
            person.SeeSystemWindow(kQuestion.title);
            deeds(person);
            person.See("chosen", [&] { return !form.IsLoaded(); });
        });
        return chosen;
    }

    // Prints `pages`, with `deeds` done at the print dialog; what PrintPages returned.
    bool Print(const platform::PageSource& pages, const std::function<void(Person&)>& deeds) {
        bool printed = false;
        PageForm form(pages);
        ShowTo(form, [&](Person& person) {
            Windows().Post([&] {
                printed = Windows().Printing().PrintPages(pages);
                form.Unload();
            });
            // The toolkit's own word for it, where its translations are installed.
            person.SeeSystemWindow(dgettext("gtk30", "Print"));
            deeds(person);
            person.See("printed", [&] { return !form.IsLoaded(); });
        });
        return printed;
    }

    // Whether there is a printed file; its name is the toolkit's.
    bool IsPrinted() const {
        return std::any_of(fs::directory_iterator(mFolder), fs::directory_iterator(),
                           [](const auto& entry) { return entry.path().extension() == ".pdf"; });
    }

    fs::path mBefore = fs::current_path();
    fs::path mFolder =
        fs::temp_directory_path() / ("kelvane_printing_test_" + std::to_string(getpid()));
};

// Selects the first printer, which is a file where there is no other, and prints.
void PrintToFile(Person& person) {
    person.Keys({"Tab", "Down"});
    Person::Blink();
    person.Keys({"alt+p"});
}

}  // namespace

TEST_F(DesktopPrinting, NothingIsOpenedWhenTheDialogIsCancelled) {
    EXPECT_EQ(Choose([](Person& person) { person.Keys({"Escape"}); },
                     &platform::PrintSurroundings::ChooseFileToOpen),
              std::nullopt);
}

TEST_F(DesktopPrinting, AFileIsChosenWithTheExtensionOfItsKind) {
    EXPECT_EQ(Choose([&](Person& person) {
                  person.Keys({"ctrl+a"});
                  person.Type(PathOf("a"));
                  person.Keys({"Return"});
              }),
              PathOf("a.xlsx"));
    // The next dialog begins in the folder of the last, and suggests the whole name.
    EXPECT_EQ(Choose([&](Person& person) { person.Keys({"Return"}); }),
              PathOf("期初 2024.12.xlsx"));
    EXPECT_EQ(Choose([&](Person& person) {
                  person.Keys({"ctrl+a"});
                  person.Type("b.CSV");
                  person.Keys({"Return"});
              }),
              PathOf("b.CSV"));
}

TEST_F(DesktopPrinting, TheSuggestedNameFollowsTheChosenKind) {
    EXPECT_EQ(Choose([&](Person& person) {
                  // From the name back to the list of kinds, and on to the dialog's last button.
                  person.Keys({"shift+Tab", "shift+Tab", "shift+Tab", "Down"});
                  Person::Blink();
                  person.Keys({"Tab", "Tab", "space"});
              }),
              PathOf("期初 2024.12.csv"));
}

TEST_F(DesktopPrinting, NothingIsChosenWhenTheDialogIsLeft) {
    EXPECT_EQ(Choose([&](Person& person) { person.Keys({"Escape"}); }), std::nullopt);
}

TEST_F(DesktopPrinting, AnExistingFileIsAskedAbout) {
    std::ofstream(PathOf("a.xlsx")) << "x";
    const auto chosen = Choose([&](Person& person) {
        person.Keys({"ctrl+a"});
        person.Type(PathOf("a"));
        Person::Blink();
        person.PressUntil("Return", kQuestion.title);  // the question has the dialog's title
        Person::Blink();
        person.Keys({"n"});
        Person::Blink();
        person.SeeSystemWindow(kQuestion.title);
        person.PressUntil("Return", kQuestion.title);
        Person::Blink();
        person.Keys({"y"});
    });
    EXPECT_EQ(chosen, PathOf("a.xlsx"));
}

TEST_F(DesktopPrinting, PagesArePrintedOnTheirPaper) {
    struct Paper {
        int width;
        int height;
        const char* points;
    };
    static constexpr Paper kPapers[] = {
        {2100, 2970, "595.276 x 841.89 pts (A4)"},
        {2970, 2100, "841.89 x 595.276 pts (A4)"},
        {2970, 4200, "841.89 x 1190.55 pts (A3)"},
        {1760, 2500, "498.898 x 708.661 pts"},
    };
    for (const Paper& paper : kPapers) {
        const SamplePages pages(3, paper.width, paper.height);
        EXPECT_TRUE(Print(pages, PrintToFile));
        const std::string facts = OutputOf("pdfinfo *.pdf");
        EXPECT_NE(facts.find("Pages:           3"), std::string::npos) << facts;
        EXPECT_NE(facts.find(paper.points), std::string::npos) << facts;
        const std::string text = OutputOf("pdftotext -layout *.pdf - | tr -d ' '");
        EXPECT_NE(text.find("第3页"), std::string::npos) << text;
        EXPECT_NE(text.find("12,345.67"), std::string::npos) << text;
        // A dot is a millimetre then: the area begins 20 mm from the paper's edges.
        const std::string dots = OutputOf(
            "pdftoppm -r 25.4 -png -f 1 -l 1 -singlefile *.pdf page && "
            "convert page.png -fuzz 10% -fill black +opaque red -trim -format '%w %h %X %Y' info:");
        EXPECT_EQ(dots, "40 40 +20 +20") << paper.points;
        OutputOf("rm *.pdf");
    }
}

TEST_F(DesktopPrinting, NothingIsPrintedWhenTheDialogIsLeft) {
    const SamplePages pages(1, 2100, 2970);
    EXPECT_FALSE(Print(pages, [](Person& person) { person.Keys({"Escape"}); }));
    EXPECT_FALSE(IsPrinted());
    EXPECT_TRUE(Print(pages, PrintToFile));
    EXPECT_TRUE(IsPrinted());
}

TEST_F(DesktopPrinting, LongWorkIsShownAndCanBeEnded) {
    ListForm form;
    std::size_t done = 0;
    ShowTo(form, [&](Person& person) {
        Windows().Post([&] {
            const auto progress = Windows().Printing().StartProgress("输出到文件");
            constexpr std::size_t kTotal = 1000000;
            while (done < kTotal && progress->Show(++done, kTotal)) {
                std::this_thread::sleep_for(std::chrono::milliseconds(5));
            }
            form.Unload();
        });
        person.SeeSystemWindow("输出到文件");
        person.Keys({"space"});  // the keyboard is on its only button
        person.See("ended", [&] { return !form.IsLoaded(); });
    });
    EXPECT_GT(done, 1U);
    EXPECT_LT(done, 10000U);
}

}  // namespace kelvane::test
