// The name that comes out of the file dialog, by what was typed and the kind that was chosen.
#include "adapters/desktop/file_name.h"

#include <gtest/gtest.h>

namespace kelvane::test {

namespace {

const std::vector<platform::FileType> kTypes{{"Excel 工作簿", "xlsx"}, {"CSV 文本", "csv"}};
const platform::FileType& kSheet = kTypes[0];
const platform::FileType& kCsv = kTypes[1];

}  // namespace

TEST(DesktopPrintingFileName, ANameGetsTheExtensionOfItsKind) {
    EXPECT_EQ(desktop::WithExtension("/期初/a", kSheet, kSheet, kTypes), "/期初/a.xlsx");
    EXPECT_EQ(desktop::WithExtension("/期初/a", kSheet, kCsv, kTypes), "/期初/a.csv");
    EXPECT_EQ(desktop::WithExtension("/期初.d/2024.12", kSheet, kCsv, kTypes),
              "/期初.d/2024.12.csv");
}

TEST(DesktopPrintingFileName, ATypedExtensionStays) {
    EXPECT_EQ(desktop::WithExtension("/a.CSV", kSheet, kSheet, kTypes), "/a.CSV");
    EXPECT_EQ(desktop::WithExtension("/a.ods", kSheet, kCsv, kTypes), "/a.ods");
    EXPECT_EQ(desktop::WithExtension("/a.xlsx", kSheet, kSheet, kTypes), "/a.xlsx");
    EXPECT_EQ(desktop::WithExtension("/a.csv", kSheet, kCsv, kTypes), "/a.csv");
}

TEST(DesktopPrintingFileName, TheOfferedExtensionGivesWayToAnotherKind) {
    EXPECT_EQ(desktop::WithExtension("/期初.xlsx", kSheet, kCsv, kTypes), "/期初.csv");
    EXPECT_EQ(desktop::WithExtension("/期初.CSV", kCsv, kSheet, kTypes), "/期初.xlsx");
}

TEST(DesktopPrintingFileName, OnlyAKnownExtensionIsTakenAway) {
    EXPECT_EQ(desktop::WithoutExtension("期初 2024.12.xlsx", kTypes), "期初 2024.12");
    EXPECT_EQ(desktop::WithoutExtension("期初 2024.12", kTypes), "期初 2024.12");
    EXPECT_EQ(desktop::WithoutExtension(".csv", kTypes), ".csv");
}

TEST(DesktopPrintingFileName, KindsAreShownInEitherCase) {
    EXPECT_EQ(desktop::FilterOf(kTypes),
              "Excel 工作簿 (*.xlsx)|*.xlsx;*.XLSX|CSV 文本 (*.csv)|*.csv;*.CSV");
}

}  // namespace kelvane::test
