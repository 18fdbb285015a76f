// A sheet to lay out, and a measurer by which every letter is as wide as it looks: Chinese ones as
// wide as they are high, the others half as wide.
#pragma once

#include <string>
#include <vector>

#include "adapters/output/layout/sheet.h"
#include "adapters/output/layout/text_measurer.h"
#include "platform/utf8.h"

namespace kelvane::output_test {

class FixedMeasurer : public output::TextMeasurer {
public:
    int Width(std::string_view text, const output::Letters& letters) override {
        int halves = 0;
        while (!text.empty()) {
            const platform::Utf8Character next = platform::FirstCharacter(text);
            halves += next.value < 0x2E80 ? 1 : 2;
            text.remove_prefix(next.length);
        }
        return halves * HalfLetter(letters.size);
    }

    // Thousandths of a millimetre: a letter of 10 points is 3.528 mm high.
    static int HalfLetter(int size) { return size * 25'400 / 720 / 2; }
};

inline platform::ColumnText Column(
    std::string title, int width, platform::ColumnKind kind = platform::ColumnKind::Text,
    platform::ColumnAlignment alignment = platform::ColumnAlignment::Left) {
    return {std::move(title), width, alignment, kind, 0};
}

inline std::vector<platform::ColumnText> SampleColumns() {
    using platform::ColumnAlignment;
    using platform::ColumnKind;
    return {
        Column("", 0),
        Column("日期", 1300, ColumnKind::Date),
        Column("项目名称", 2500),
        Column("未结转期初", 1500, ColumnKind::Number, ColumnAlignment::Right),
    };
}

// `rows` rows of one line each, numbered from 1 in the item's name.
inline output::Sheet SampleSheet(int rows) {
    output::Sheet sheet;
    sheet.title = "项目期初录入";
    sheet.header = {{"年度", "2004", {0, 200}, 700}};
    sheet.footer = {{"单位", "演示公司", {0, 0}, 500},
                    {"制表人", "张三", {700, 0}, 500},
                    {"打印日期", "2004.06.30", {1350, 0}, 375}};
    sheet.columns = SampleColumns();
    sheet.rows = rows;
    sheet.cells = [](int row) {
        return "\t2004-06-01\t项目" + std::to_string(row + 1) + "\t1,234.50";
    };
    return sheet;
}

}  // namespace kelvane::output_test
