#include "adapters/tsql/translation.h"

#include <algorithm>
#include <utility>

#include "adapters/tsql/language/analyzer.h"
#include "adapters/tsql/language/parser.h"
#include "adapters/tsql/language/text_rules.h"
#include "adapters/tsql/values/stored_value.h"

namespace kelvane::tsql {

namespace {

// The same statement with the values that lie further back in the text.
TranslatedStatement Shifted(TranslatedStatement statement, std::size_t literals) {
    for (Parameter& parameter : statement.translated.parameters) parameter.literal += literals;
    return statement;
}

bool IsErrorOfItsStatement(int code) {
    return code == error::kUnknownTable || code == error::kNullRefused;
}

}  // namespace

bool Translation::Serves(const LexedText& text) const {
    return std::all_of(fixedLiterals.begin(), fixedLiterals.end(), [&](const FixedLiteral& fixed) {
        return text.literals[fixed.literal].raw == fixed.raw;
    });
}

Translation Translate(const LexedText& text, Catalog& catalog, StatementWriter& writer,
                      bool changeable) {
    TokenReader reader(text);
    std::vector<Statement> statements = ParseBatch(reader);
    Translation translation;
    translation.fixedLiterals = reader.FixedLiterals();
    for (Statement& statement : statements) {
        if (statement.sameAs) {
            translation.statements.push_back(
                Shifted(translation.statements[*statement.sameAs], statement.literalShift));
            continue;
        }
        TranslatedStatement& result = translation.statements.emplace_back();
        try {
            Analyze(statement, catalog);
            result.translated = writer.Write(statement, changeable);
        } catch (const DatabaseError& failure) {
            if (!IsErrorOfItsStatement(failure.NativeCode())) throw;
            result.error = failure;
        }
    }
    return translation;
}

Datum ValueOf(const Parameter& parameter, const std::vector<Literal>& literals) {
    const Literal& literal = literals[parameter.literal];
    const bool stored = parameter.use == Parameter::Use::Stored;
    // The conversion must not cut the text: whether it is too long, Stored() decides.
    const Type type =
        stored && parameter.type.IsText() ? Type{parameter.type.kind, 0} : parameter.type;
    Datum value = ConvertLiteral(literal, parameter.negated, type);
    if (stored) return Stored(std::move(value), parameter.type, parameter.column);
    if (auto* text = std::get_if<std::string>(&value); text != nullptr && parameter.type.IsText()) {
        if (parameter.use == Parameter::Use::Trimmed) text->resize(TrimEnd(*text).size());
        if (parameter.use == Parameter::Use::Key) return FoldedText(TrimEnd(*text));
    }
    return value;
}

}  // namespace kelvane::tsql
