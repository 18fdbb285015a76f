#include "entries/failure_reason.h"

#include <algorithm>
#include <array>
#include <exception>

#include "platform/database.h"
#include "platform/money.h"

namespace kelvane::entries {

namespace {

// The account database's own numbers for what a value can do wrong.
struct NumberedReason {
    int nativeCode;
    std::string_view text;
};

constexpr std::string_view kTooLong = "有内容太长，超过了数据库允许的长度，请缩短。";
constexpr std::string_view kTooLarge = "数字超出了数据库能保存的范围。";
constexpr std::string_view kThereAlready = "数据库中已有相同编号的记录，可以再试一次。";

constexpr std::array kNumberedReasons{
    NumberedReason{8152, kTooLong},      NumberedReason{2628, kTooLong},
    NumberedReason{8115, kTooLarge},     NumberedReason{2627, kThereAlready},
    NumberedReason{2601, kThereAlready},
};

std::string_view ReasonOf(int nativeCode) {
    const auto* known =
        std::find_if(kNumberedReasons.begin(), kNumberedReasons.end(),
                     [&](const NumberedReason& entry) { return entry.nativeCode == nativeCode; });
    return known == kNumberedReasons.end() ? std::string_view() : known->text;
}

}  // namespace

std::string ReasonOfFailure() {
    const std::exception_ptr handled = std::current_exception();
    if (!handled) return {};
    try {
        std::rethrow_exception(handled);
    } catch (const platform::ConnectionLost&) {
        return "数据库连接已断开，恢复后会自动重新连接。";
    } catch (const platform::DatabaseBusy&) {
        return "数据库正被他人占用，请稍后重试。";
    } catch (const platform::DatabaseError& error) {
        return std::string(ReasonOf(error.NativeCode()));
    } catch (const ToldFailure& failure) {
        return failure.what();
    } catch (const platform::MalformedStatement&) {
        return "内容中可能有单引号（'）等不能用的字符。";
    } catch (const platform::MoneyOverflow&) {
        return std::string(kTooLarge);
    } catch (...) {
        return {};
    }
}

}  // namespace kelvane::entries
