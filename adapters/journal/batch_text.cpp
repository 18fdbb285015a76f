#include "adapters/journal/batch_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <nlohmann/json.hpp>

#include "adapters/journal/hex_text.h"
#include "platform/utf8.h"

namespace kelvane::journal {

namespace {

using platform::BatchChange;
using platform::BatchIntent;
using platform::BatchOutcome;
using platform::RowFields;
using platform::RowImage;

constexpr int kVersion = 1;

struct OutcomeName {
    BatchOutcome outcome;
    const char* name;
};
constexpr std::array kOutcomeNames{OutcomeName{BatchOutcome::Written, "written"},
                                   OutcomeName{BatchOutcome::NotWritten, "not written"},
                                   OutcomeName{BatchOutcome::InDoubt, "in doubt"}};

struct IntentText {
    const char* name;
    std::string BatchIntent::*text;
};
constexpr std::array kIntentTexts{
    IntentText{"kind", &BatchIntent::kind},
    IntentText{"user", &BatchIntent::user},
    IntentText{"file", &BatchIntent::file},
    IntentText{"hash", &BatchIntent::hash},
    IntentText{"linesFile", &BatchIntent::linesFile},
    IntentText{"linesHash", &BatchIntent::linesHash},
};

// Throws as a line does that lacks something.
[[noreturn]] void Refuse(const char* what) {
    throw nlohmann::json::other_error::create(600, what, static_cast<const Json*>(nullptr));
}

bool IsUtf8(std::string_view text) {
    while (!text.empty()) {
        if (!platform::TakeCharacter(text).valid) return false;
    }
    return true;
}

Json JsonOfText(const std::string& text) {
    if (IsUtf8(text)) return text;
    return {{"hex", HexOf(text)}};
}

std::string TextOf(const Json& json) {
    if (json.is_string()) return json.get<std::string>();
    const auto hex = json.at("hex").get<std::string>();
    if (hex.size() % 2 != 0) Refuse("half a byte");
    std::string text;
    for (std::size_t at = 0; at < hex.size(); at += 2) {
        unsigned value = 0;
        const char* end = hex.data() + at + 2;
        if (std::from_chars(hex.data() + at, end, value, 16).ptr != end) Refuse("no byte");
        text += static_cast<char>(static_cast<unsigned char>(value));
    }
    return text;
}

// Whether JSON writes `text` as it is.
bool IsPlain(std::string_view text) {
    const auto isPlain = [](char letter) {
        const auto byte = static_cast<unsigned char>(letter);
        return byte >= ' ' && byte != '"' && byte != '\\' && byte != 0x7F;
    };
    return std::ranges::all_of(text, isPlain) && IsUtf8(text);
}

void AppendText(std::string& json, const std::string& text) {
    if (IsPlain(text)) {
        json.append(1, '"').append(text).append(1, '"');
    } else {
        json += JsonOfText(text).dump();
    }
}

void AppendFields(std::string& json, const RowFields& fields) {
    json += '[';
    for (const auto& [column, text] : fields) {
        if (&column != &fields.front().first) json += ',';
        json += '[';
        AppendText(json, column);
        json += ',';
        AppendText(json, text);
        json += ']';
    }
    json += ']';
}

RowFields FieldsOf(const Json& json) {
    RowFields fields;
    fields.reserve(json.size());
    for (const Json& field : json) fields.emplace_back(TextOf(field.at(0)), TextOf(field.at(1)));
    return fields;
}

void AppendImage(std::string& json, const std::optional<RowImage>& image) {
    if (!image) {
        json += "null";
        return;
    }
    json += R"({"fields":)";
    AppendFields(json, image->fields);
    json += R"(,"lines":[)";
    for (const RowFields& line : image->lines) {
        if (&line != &image->lines.front()) json += ',';
        AppendFields(json, line);
    }
    json += "]}";
}

std::optional<RowImage> ImageOf(const Json& json) {
    if (json.is_null()) return std::nullopt;
    RowImage image{.fields = FieldsOf(json.at("fields")), .lines = {}};
    for (const Json& line : json.at("lines")) image.lines.push_back(FieldsOf(line));
    return image;
}

}  // namespace

Json HeadLine(const BatchIntent& intent) {
    Json head = {
        {"version", kVersion}, {"undoes", intent.undoes}, {"time", intent.time.FullText()}};
    for (const IntentText& each : kIntentTexts) head[each.name] = JsonOfText(intent.*each.text);
    return {{"intent", std::move(head)}};
}

BatchIntent HeadOf(const Json& line) {
    const Json& head = line.at("intent");
    if (head.at("version").get<int>() > kVersion) throw Fault{"由更新的版本写成"};
    BatchIntent intent;
    intent.undoes = head.at("undoes").get<int>();
    if (!platform::DateTime::Parse(head.at("time").get<std::string>(), intent.time)) {
        Refuse("no time");
    }
    for (const IntentText& each : kIntentTexts) intent.*each.text = TextOf(head.at(each.name));
    return intent;
}

std::string ChangeText(const BatchChange& change) {
    std::string json = R"({"change":{"identity":)" + std::to_string(change.identity);
    json += R"(,"before":)";
    AppendImage(json, change.before);
    json += R"(,"after":)";
    AppendImage(json, change.after);
    return json + "}}";
}

bool IsChange(const Json& line) {
    return line.contains("change");
}

BatchChange ChangeOf(const Json& line) {
    const Json& change = line.at("change");
    return {.identity = change.at("identity").get<std::int64_t>(),
            .before = ImageOf(change.at("before")),
            .after = ImageOf(change.at("after"))};
}

bool IsChange(std::string_view text, std::string_view start) {
    return text.starts_with(start) && text.substr(start.size()).starts_with(R"(,"change":)");
}

Json CountsLine(const platform::BatchCounts& counts) {
    return {{"changes",
             {{"new", counts.created}, {"changed", counts.changed}, {"deleted", counts.deleted}}}};
}

platform::BatchCounts CountsOf(const Json& line) {
    const Json& counts = line.at("changes");
    return {.created = counts.at("new").get<std::size_t>(),
            .changed = counts.at("changed").get<std::size_t>(),
            .deleted = counts.at("deleted").get<std::size_t>()};
}

Json OutcomeLine(BatchOutcome outcome) {
    const auto* const known = std::ranges::find(kOutcomeNames, outcome, &OutcomeName::outcome);
    return {{"outcome", known->name}};
}

BatchOutcome OutcomeOf(const Json& line) {
    const auto name = line.at("outcome").get<std::string>();
    const auto* const known = std::ranges::find_if(
        kOutcomeNames, [&](const OutcomeName& each) { return name == each.name; });
    if (known == kOutcomeNames.end()) Refuse("no outcome");
    return known->outcome;
}

}  // namespace kelvane::journal
