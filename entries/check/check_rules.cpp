#include <algorithm>
#include <array>

#include "entries/check/check.h"

namespace kelvane::entries {

namespace {

constexpr bool kError = false;
constexpr bool kWarning = true;

constexpr std::array kRules{
    CheckRule{"check.item", kError, "项目不存在"},
    CheckRule{"check.center", kError, "责任中心不存在"},
    CheckRule{"check.element", kError, "要素不存在"},
    CheckRule{"check.code", kError, "明细的设备或存货不存在"},
    CheckRule{"check.lines.sum", kError, "未结转期初与明细合计不符"},
    CheckRule{"check.lines.orphan", kError, "明细没有对应的期初"},
    CheckRule{"check.lines.kind", kError, "要素没有明细，却有明细行"},
    CheckRule{"check.lines.product", kError, "明细的余额不是单价乘以数量"},
    CheckRule{"check.counter", kError, "期初编号计数器不对"},
    CheckRule{"check.value", kError, "日期、金额等无法读取"},
    CheckRule{"check.budget", kWarning, "超出预算，或预算无法读取"},
    CheckRule{"check.line.budget", kWarning, "明细超出预算"},
    CheckRule{"check.date", kWarning, "日期不早于启用期间第一天"},
    CheckRule{"check.settled", kWarning, "项目已经完工结算"},
    CheckRule{"check.zero", kWarning, "未结转期初为 0"},
    CheckRule{"check.keys", kWarning, "关键字不是该项目的"},
    CheckRule{"check.authority", kWarning, "责任中心下不包括该项目"},
    CheckRule{"check.twin", kWarning, "同一期初录入两次"},
    CheckRule{"check.blank", kWarning, "编码与基础数据只差空格或大小写"},
};

}  // namespace

std::span<const CheckRule> CheckRules() {
    return kRules;
}

bool IsWarning(Rule rule) {
    const auto* const known = std::ranges::find(kRules, Declared(rule).id, &CheckRule::id);
    return known != kRules.end() && known->warning;
}

std::vector<std::string> CheckTitles() {
    return {"编号", "级别", "规则", "列", "说明"};
}

std::vector<std::string> CheckTexts(const CheckFinding& finding) {
    return {finding.identity == 0 ? std::string() : std::to_string(finding.identity),
            IsWarning(finding.finding.rule) ? "警告" : "错误", std::string(finding.finding.id),
            finding.title, finding.finding.text};
}

}  // namespace kelvane::entries
