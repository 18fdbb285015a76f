#include "adapters/output/printing.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/acting_windows.h"
#include "tests/unit/host/temporary_folder.h"
#include "tests/unit/output/recording_surroundings.h"
#include "tests/unit/output/sample_sheet.h"

namespace kelvane::output_test {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

class OfferedPrintingTest : public testing::Test {
protected:
    OfferedPrintingTest() {
        mServices.windows = &mWindows;
        output::OfferPrinting(
            mServices, mSurroundings,
            [this](std::string_view place, std::string_view) { mPlaces.emplace_back(place); });
    }

    // A control that took a list of three rows.
    std::unique_ptr<platform::PrintControl> Accepted() {
        const auto style = mServices.createPrintStyle();
        style->Open((mFolder / "style.xml").string(), "项目期初录入");
        style->SetTitle("0,200", "700");
        style->SetColumns("0,260", platform::EncodeColumns(SampleColumns()), false);
        style->SetRows(3, SampleSheet(3).cells);
        auto control = mServices.createPrintControl();
        EXPECT_EQ(control->SetDataStyleXml(*style, platform::kDefaultStyle), 0);
        return control;
    }

    host_test::TemporaryFolder mFolder;
    support::ActingWindows mWindows;
    RecordingSurroundings mSurroundings;
    platform::Services mServices;
    std::vector<std::string> mPlaces;
};

}  // namespace

TEST_F(OfferedPrintingTest, PrintsThroughTheSurroundings) {
    Accepted()->Print();
    EXPECT_THAT(mSurroundings.printedPages, SizeIs(1));
    EXPECT_THAT(mPlaces, IsEmpty());
}

TEST_F(OfferedPrintingTest, TheHostIsToldOfFailures) {
    mSurroundings.printingFails = true;
    Accepted()->Print();
    EXPECT_THAT(mPlaces, ElementsAre("Print"));
}

TEST_F(OfferedPrintingTest, TheHostsOwnDocumentStays) {
    EXPECT_NE(mServices.createXmlDocument(), nullptr);
    mServices.createXmlDocument = [] { return nullptr; };
    output::OfferPrinting(mServices, mSurroundings, nullptr);
    EXPECT_EQ(mServices.createXmlDocument(), nullptr);
}

}  // namespace kelvane::output_test
