#include "adapters/output/style/stored_style.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <filesystem>
#include <fstream>

#include "adapters/output/formats/xml_parser.h"
#include "adapters/output/formats/xml_text.h"
#include "platform/native_path.h"

namespace kelvane::output {

namespace {

constexpr int kMaxLength = 10'000;
constexpr int kMaxColumnWidth = 100'000;

constexpr const char* kRoot = "格式";
constexpr const char* kSettings = "页面设置";
constexpr const char* kLayout = "版式";
constexpr const char* kTitle = "标题";
constexpr const char* kTable = "列区";
constexpr const char* kHeaderItem = "页眉项";
constexpr const char* kFooterItem = "页脚项";
constexpr const char* kColumns = "列组";
constexpr const char* kColumn = "列";
constexpr const char* kName = "名称";
constexpr const char* kPosition = "位置";
constexpr const char* kWidth = "宽度";
constexpr const char* kPaper = "纸张";

struct NumberField {
    const char* name;
    int PageSettings::*value;
};
constexpr std::array kNumberFields{
    NumberField{"左边距", &PageSettings::marginLeft},
    NumberField{"上边距", &PageSettings::marginTop},
    NumberField{"右边距", &PageSettings::marginRight},
    NumberField{"下边距", &PageSettings::marginBottom},
    NumberField{"标题字号", &PageSettings::titleSize},
    NumberField{"表头字号", &PageSettings::headSize},
    NumberField{"正文字号", &PageSettings::bodySize},
};

struct ChoiceField {
    const char* name;
    bool PageSettings::*value;
    const char* yes;
    const char* no;
};
constexpr std::array kChoiceFields{
    ChoiceField{"方向", &PageSettings::landscape, "横向", "纵向"},
    ChoiceField{"每页表头", &PageSettings::repeatHead, "是", "否"},
    ChoiceField{"适合纸宽", &PageSettings::fitWidth, "是", "否"},
};

std::optional<int> ReadNumber(std::string_view text, int maximum) {
    int number = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool whole = read.ec == std::errc() && read.ptr == text.data() + text.size();
    if (!whole || number < 0 || number > maximum) return std::nullopt;
    return number;
}

std::string PositionText(const Position& position) {
    return std::to_string(position.left) + "," + std::to_string(position.top);
}

std::string TextOf(const XmlElement& element, const char* attribute) {
    const std::string* text = element.Attribute(attribute);
    return text == nullptr ? std::string() : *text;
}

std::optional<PageSettings> SettingsOf(const XmlElement& element) {
    PageSettings settings;
    settings.paper = TextOf(element, kPaper);
    for (const NumberField& field : kNumberFields) {
        const auto number = ReadLength(TextOf(element, field.name));
        if (!number) return std::nullopt;
        settings.*field.value = *number;
    }
    for (const ChoiceField& field : kChoiceFields) {
        const std::string text = TextOf(element, field.name);
        if (text != field.yes && text != field.no) return std::nullopt;
        settings.*field.value = text == field.yes;
    }
    if (!IsUsable(settings)) return std::nullopt;
    return settings;
}

void TakeItem(const XmlElement& element, std::map<std::string, ItemPlace>& items) {
    const auto position = ReadPosition(TextOf(element, kPosition));
    const auto width = ReadLength(TextOf(element, kWidth));
    if (position && width) items[TextOf(element, kName)] = {*position, *width};
}

void TakeColumns(const XmlElement& element, StoredStyle& style) {
    StoredColumns columns;
    for (const XmlElement& child : element.children) {
        const auto width = ReadNumber(TextOf(child, kWidth), kMaxColumnWidth);
        if (child.name != kColumn || !width) return;
        columns.push_back({TextOf(child, kName), *width});
    }
    const bool anyShown = std::any_of(columns.begin(), columns.end(),
                                      [](const StoredColumn& column) { return column.width > 0; });
    if (anyShown) style.columnGroups.push_back(std::move(columns));
}

void TakeLayout(const XmlElement& layout, StoredStyle& style) {
    for (const XmlElement& child : layout.children) {
        if (child.name == kTitle) style.titleEnd = ReadPosition(TextOf(child, kPosition));
        if (child.name == kTable) style.table = ReadPosition(TextOf(child, kPosition));
        if (child.name == kHeaderItem) TakeItem(child, style.header);
        if (child.name == kFooterItem) TakeItem(child, style.footer);
        if (child.name == kColumns) TakeColumns(child, style);
    }
}

// Not more of the file than shows that it is too long.
std::string ReadFile(const std::filesystem::path& path) {
    std::string text(kMaxXmlSize + 1, '\0');
    std::ifstream file(path, std::ios::binary);
    file.read(text.data(), static_cast<std::streamsize>(text.size()));
    text.resize(static_cast<std::size_t>(file.gcount()));
    return text;
}

std::string Elements(const char* name, const std::map<std::string, ItemPlace>& items) {
    std::string text;
    for (const auto& [caption, place] : items) {
        text += "<" + std::string(name) + XmlAttribute(kName, caption) +
                XmlAttribute(kPosition, PositionText(place.position)) +
                XmlAttribute(kWidth, std::to_string(place.width)) + "/>";
    }
    return text;
}

std::string ColumnsElement(const StoredColumns& columns) {
    std::string text = "<" + std::string(kColumns) + ">";
    for (const StoredColumn& column : columns) {
        text += "<" + std::string(kColumn) + XmlAttribute(kName, column.name) +
                XmlAttribute(kWidth, std::to_string(column.width)) + "/>";
    }
    return text + "</" + kColumns + ">";
}

std::string PlaceElement(const char* name, const std::optional<Position>& position) {
    if (!position) return {};
    return "<" + std::string(name) + XmlAttribute(kPosition, PositionText(*position)) + "/>";
}

}  // namespace

std::optional<int> ReadLength(std::string_view text) {
    return ReadNumber(text, kMaxLength);
}

std::optional<Position> ReadPosition(std::string_view text) {
    const std::size_t comma = text.find(',');
    if (comma == std::string_view::npos) return std::nullopt;
    const auto left = ReadLength(text.substr(0, comma));
    const auto top = ReadLength(text.substr(comma + 1));
    if (!left || !top) return std::nullopt;
    return Position{*left, *top};
}

StoredStyle ReadStyle(const std::string& path, std::string_view name) {
    StoredStyle style;
    const std::filesystem::path place = platform::PathOf(path);
    std::error_code error;
    if (!std::filesystem::is_regular_file(place, error)) return style;
    try {
        const XmlElement root = ParseXml(ReadFile(place));
        if (root.name != kRoot)
            throw XmlRefused("it does not begin with <" + std::string(kRoot) + ">");
        for (const XmlElement& child : root.children) {
            if (child.name == kSettings) style.settings = SettingsOf(child);
            if (child.name == kLayout && TextOf(child, kName) == name) TakeLayout(child, style);
        }
    } catch (const XmlRefused& refused) {
        style.refusal = path + ": " + refused.what();
    }
    return style;
}

StyleTexts WriteStyle(const StoredStyle& style, std::string_view name) {
    const PageSettings& settings = *style.settings;
    StyleTexts texts;
    texts.settings = "<" + std::string(kSettings) + XmlAttribute(kPaper, settings.paper);
    for (const ChoiceField& field : kChoiceFields) {
        texts.settings += XmlAttribute(field.name, settings.*field.value ? field.yes : field.no);
    }
    for (const NumberField& field : kNumberFields) {
        texts.settings += XmlAttribute(field.name, std::to_string(settings.*field.value));
    }
    texts.settings += "/>";

    texts.layout = "<" + std::string(kLayout) + XmlAttribute(kName, name) + ">";
    texts.layout += PlaceElement(kTitle, style.titleEnd) + PlaceElement(kTable, style.table);
    texts.layout += Elements(kHeaderItem, style.header) + Elements(kFooterItem, style.footer);
    for (const StoredColumns& columns : style.columnGroups) texts.layout += ColumnsElement(columns);
    texts.layout += "</" + std::string(kLayout) + ">";
    return texts;
}

bool IsReadableStyle(const StyleTexts& texts) {
    const std::string root(kRoot);
    return IsReadableXml("<" + root + ">" + texts.settings + texts.layout + "</" + root + ">");
}

StoredColumns* FindColumns(StoredStyle& style, const std::vector<platform::ColumnText>& columns) {
    const auto found = std::find_if(
        style.columnGroups.begin(), style.columnGroups.end(), [&](const StoredColumns& group) {
            return std::equal(group.begin(), group.end(), columns.begin(), columns.end(),
                              [](const StoredColumn& stored, const platform::ColumnText& column) {
                                  return stored.name == column.title;
                              });
        });
    return found == style.columnGroups.end() ? nullptr : &*found;
}

}  // namespace kelvane::output
