#include "adapters/output/style/settings_window.h"

#include <algorithm>
#include <charconv>

#include "controls/place.h"
namespace kelvane::output {

using controls::ComboBox;
using controls::Control;

namespace {

// Measures in twips.
constexpr int kMargin = 180;
constexpr int kCaptionWidth = 1800;
constexpr int kFieldWidth = 1800;
constexpr int kFieldHeight = 330;
constexpr int kRowHeight = 450;
constexpr int kButtonWidth = 1200;
constexpr int kButtonHeight = 375;

constexpr const char* kMarginRefusal = "页边距须为 0 到 100 毫米之间的数字，最多一位小数！";
constexpr const char* kLettersRefusal = "字号须为 5 到 72 磅之间的数字，最多一位小数！";

// 150 tenths are "15", 155 are "15.5".
std::string TextOfTenths(int tenths) {
    std::string text = std::to_string(tenths / 10);
    if (tenths % 10 != 0) text += "." + std::to_string(tenths % 10);
    return text;
}

std::optional<int> TenthsOfText(const std::string& text) {
    constexpr std::size_t kMaxDigits = 6;
    const std::size_t point = std::min(text.find('.'), text.size());
    std::string digits = text.substr(0, point);
    const std::string fraction = point < text.size() ? text.substr(point + 1) : "0";
    if (digits.empty() || fraction.size() != 1 || digits.size() > kMaxDigits) return std::nullopt;
    digits += fraction;
    if (digits.find_first_not_of("0123456789") != std::string::npos) return std::nullopt;
    int tenths = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), tenths);
    return tenths;
}

void Choose(ComboBox& box, const std::string& text) {
    const auto& items = box.Items();
    box.SetListIndex(static_cast<int>(std::find(items.begin(), items.end(), text) - items.begin()));
}

bool IsItem(const ComboBox& box) {
    const auto& items = box.Items();
    return std::find(items.begin(), items.end(), box.Text()) != items.end();
}

}  // namespace

SettingsWindow::SettingsWindow(platform::Windows& windows, const PageSettings& settings)
    : Form("frmPrintSettings"),
      cboPaper(*this, "cboPaper"),
      cboOrientation(*this, "cboOrientation"),
      txtLeft(*this, "txtLeft"),
      txtTop(*this, "txtTop"),
      txtRight(*this, "txtRight"),
      txtBottom(*this, "txtBottom"),
      txtTitleSize(*this, "txtTitleSize"),
      txtHeadSize(*this, "txtHeadSize"),
      txtBodySize(*this, "txtBodySize"),
      cboRepeatHead(*this, "cboRepeatHead"),
      cboFitWidth(*this, "cboFitWidth"),
      cmdOK(*this, "cmdOK"),
      cmdCancel(*this, "cmdCancel"),
      mWindows(windows),
      mSettings(settings),
      mNumbers{
          {"左边距 (毫米)", &txtLeft, &PageSettings::marginLeft, IsMargin, kMarginRefusal},
          {"上边距 (毫米)", &txtTop, &PageSettings::marginTop, IsMargin, kMarginRefusal},
          {"右边距 (毫米)", &txtRight, &PageSettings::marginRight, IsMargin, kMarginRefusal},
          {"下边距 (毫米)", &txtBottom, &PageSettings::marginBottom, IsMargin, kMarginRefusal},
          {"标题字号 (磅)", &txtTitleSize, &PageSettings::titleSize, IsLetterSize, kLettersRefusal},
          {"表头字号 (磅)", &txtHeadSize, &PageSettings::headSize, IsLetterSize, kLettersRefusal},
          {"正文字号 (磅)", &txtBodySize, &PageSettings::bodySize, IsLetterSize, kLettersRefusal},
      },
      mChoices{
          {"方向", &cboOrientation, &PageSettings::landscape, "纵向", "横向"},
          {"每页打印表头", &cboRepeatHead, &PageSettings::repeatHead, "否", "是"},
          {"缩放到纸宽", &cboFitWidth, &PageSettings::fitWidth, "否", "是"},
      } {
    SetCaption("打印设置");
    SetResizable(false);
    AddRow("纸张", cboPaper);
    AddRow(mChoices[0].caption, *mChoices[0].box);
    for (const NumberRow& row : mNumbers) AddRow(row.caption, *row.box);
    for (std::size_t each = 1; each < mChoices.size(); ++each) {
        AddRow(mChoices[each].caption, *mChoices[each].box);
    }
    cmdOK.SetCaption("确定");
    cmdOK.SetDefault(true);
    cmdOK.Click = [this] { Accept(); };
    cmdCancel.SetCaption("取消");
    cmdCancel.SetCancel(true);
    cmdCancel.Click = [this] { Unload(); };
}

void SettingsWindow::AddRow(const char* caption, Control& field) {
    mCaptions.emplace_back(*this, "lbl" + field.Name().substr(3)).SetCaption(caption);
    mFields.push_back(&field);
}

void SettingsWindow::Form_Load() {
    mAccepted.reset();
    cboPaper.Clear();
    for (const Paper& paper : kPapers) cboPaper.AddItem(paper.name);
    Choose(cboPaper, mSettings.paper);
    for (const ChoiceRow& row : mChoices) {
        row.box->Clear();
        row.box->AddItem(row.no);
        row.box->AddItem(row.yes);
        row.box->SetListIndex(mSettings.*row.value ? 1 : 0);
    }
    for (const NumberRow& row : mNumbers) row.box->SetText(TextOfTenths(mSettings.*row.value));

    const int rows = static_cast<int>(mFields.size());
    const int width = 2 * kMargin + kCaptionWidth + kFieldWidth + kFrameWidth;
    const int height = 3 * kMargin + rows * kRowHeight + kButtonHeight + kFrameHeight;
    SetSize(width, height);
    SetPosition((mWindows.ScreenWidth() - width) / 2, (mWindows.ScreenHeight() - height) / 2);
    cboPaper.SetFocus();
}

void SettingsWindow::Form_Resize() {
    int top = kMargin;
    for (std::size_t row = 0; row < mFields.size(); ++row, top += kRowHeight) {
        PlaceControl(mCaptions[row], kMargin, top, kCaptionWidth, kFieldHeight);
        PlaceControl(*mFields[row], kMargin + kCaptionWidth, top, kFieldWidth, kFieldHeight);
    }
    const int right = ScaleWidth() - kMargin;
    PlaceControl(cmdCancel, right - kButtonWidth, top + kMargin, kButtonWidth, kButtonHeight);
    PlaceControl(cmdOK, right - 2 * kButtonWidth - kMargin, top + kMargin, kButtonWidth,
                 kButtonHeight);
}

void SettingsWindow::Refuse(const char* text, Control& field) {
    platform::Message message;
    message.text = text;
    message.caption = Caption();
    mWindows.ShowMessage(message);
    field.SetFocus();
}

bool SettingsWindow::TakeChoices(PageSettings& settings) {
    const char* refusal = "请选择列表中的一项！";
    if (!IsItem(cboPaper)) {
        Refuse(refusal, cboPaper);
        return false;
    }
    settings.paper = cboPaper.Text();
    for (const ChoiceRow& row : mChoices) {
        if (!IsItem(*row.box)) {
            Refuse(refusal, *row.box);
            return false;
        }
        settings.*row.value = row.box->Text() == row.yes;
    }
    return true;
}

bool SettingsWindow::TakeNumbers(PageSettings& settings) {
    for (const NumberRow& row : mNumbers) {
        const auto tenths = TenthsOfText(row.box->Text());
        if (!tenths || !row.isWithin(*tenths)) {
            Refuse(row.refusal, *row.box);
            return false;
        }
        settings.*row.value = *tenths;
    }
    return true;
}

void SettingsWindow::Accept() {
    PageSettings settings = mSettings;
    if (!TakeChoices(settings) || !TakeNumbers(settings)) return;
    if (!IsUsable(settings)) {
        Refuse("页边距太大，纸上没有表格的位置！", txtLeft);
        return;
    }
    mAccepted = settings;
    Unload();
}

}  // namespace kelvane::output
