#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>

#include "adapters/tsql/language/errors.h"
#include "adapters/tsql/language/parser.h"
#include "platform/ascii.h"

namespace kelvane::tsql {

namespace {

using Kind = Expression::Kind;

constexpr std::string_view kComparisons[] = {"=", "<>", "!=", "<", "<=", ">", ">=", "!<", "!>"};

ExpressionPtr Make(Kind kind) {
    return std::make_unique<Expression>(kind);
}

ExpressionPtr Make(Kind kind, ExpressionPtr first, ExpressionPtr second = nullptr) {
    ExpressionPtr result = Make(kind);
    result->operands.push_back(std::move(first));
    if (second) result->operands.push_back(std::move(second));
    return result;
}

// How the dialect means "!<" and "!>".
std::string_view PlainComparison(std::string_view symbol) {
    if (symbol == "!=") return "<>";
    if (symbol == "!<") return ">=";
    if (symbol == "!>") return "<=";
    return symbol;
}

class ExpressionParser {
public:
    explicit ExpressionParser(TokenReader& reader) : mReader(reader) {}

    ExpressionPtr Condition() {
        const TokenReader::Depth depth(mReader);
        ExpressionPtr left = Conjunction();
        while (mReader.TakeWord("or")) {
            mReader.CountLink();
            left = Make(Kind::Or, std::move(left), Conjunction());
        }
        return left;
    }

private:
    ExpressionPtr Conjunction() {
        ExpressionPtr left = Negation();
        while (mReader.TakeWord("and")) {
            mReader.CountLink();
            left = Make(Kind::And, std::move(left), Negation());
        }
        return left;
    }

    ExpressionPtr Negation() {
        if (!mReader.TakeWord("not")) return Predicate();
        const TokenReader::Depth depth(mReader);
        return Make(Kind::Not, Negation());
    }

    ExpressionPtr Predicate() {
        if (mReader.TakeWord("exists")) {
            ExpressionPtr exists = Make(Kind::Exists);
            exists->query = SubQuery();
            return exists;
        }
        ExpressionPtr left = Sum();
        if (left->IsCondition()) return left;
        const Token& token = mReader.Current();
        if (token.kind == Token::Kind::Symbol &&
            std::find(std::begin(kComparisons), std::end(kComparisons), token.text) !=
                std::end(kComparisons)) {
            const std::string_view symbol = PlainComparison(token.text);
            mReader.Advance();
            if (mReader.IsWord("all") || mReader.IsWord("any") || mReader.IsWord("some")) {
                mReader.Refuse();
            }
            ExpressionPtr compare = Make(Kind::Compare, std::move(left), Sum());
            compare->symbol = symbol;
            return compare;
        }
        if (mReader.TakeWord("is")) {
            ExpressionPtr result = Make(Kind::IsNull, std::move(left));
            result->negated = mReader.TakeWord("not");
            mReader.ExpectWord("null");
            return result;
        }
        const bool negated = mReader.IsWord("not") && mReader.TakeWord("not");
        ExpressionPtr result = NamedPredicate(left);
        if (!result) {
            if (negated) mReader.Refuse();
            return left;
        }
        result->negated = negated;
        return result;
    }

    ExpressionPtr NamedPredicate(ExpressionPtr& left) {
        if (mReader.TakeWord("like")) {
            ExpressionPtr like = Make(Kind::Like, std::move(left), Sum());
            if (mReader.IsWord("escape")) mReader.Refuse();
            return like;
        }
        if (mReader.TakeWord("between")) {
            ExpressionPtr between = Make(Kind::Between, std::move(left), Sum());
            mReader.ExpectWord("and");
            between->operands.push_back(Sum());
            return between;
        }
        if (!mReader.TakeWord("in")) return nullptr;
        mReader.ExpectSymbol("(");
        if (mReader.TakeWord("select")) {
            ExpressionPtr in = Make(Kind::InQuery, std::move(left));
            in->query = ParseSelect(mReader);
            mReader.ExpectSymbol(")");
            return in;
        }
        ExpressionPtr in = Make(Kind::InList, std::move(left));
        do {
            in->operands.push_back(Sum());
        } while (mReader.TakeSymbol(","));
        mReader.ExpectSymbol(")");
        return in;
    }

    ExpressionPtr Sum() {
        return Chain({"+", "-"}, [this] { return Product(); });
    }

    ExpressionPtr Product() {
        return Chain({"*", "/", "%"}, [this] { return Signed(); });
    }

    template <typename Next>
    ExpressionPtr Chain(std::initializer_list<std::string_view> symbols, Next next) {
        ExpressionPtr left = next();
        for (;;) {
            const auto* found = std::find_if(symbols.begin(), symbols.end(),
                                             [&](auto symbol) { return mReader.IsSymbol(symbol); });
            if (found == symbols.end()) return left;
            mReader.Advance();
            mReader.CountLink();
            left = Make(Kind::Arithmetic, std::move(left), next());
            left->symbol = *found;
        }
    }

    ExpressionPtr Signed() {
        const TokenReader::Depth depth(mReader);
        if (mReader.TakeSymbol("+")) return Signed();
        if (!mReader.TakeSymbol("-")) return Primary();
        ExpressionPtr operand = Signed();
        if (operand->kind == Kind::Literal && operand->form != Literal::Form::Text &&
            operand->form != Literal::Form::CasedText) {
            operand->negated = !operand->negated;
            return operand;
        }
        throw NotTranslated("-");
    }

    ExpressionPtr Primary() {
        const Token& token = mReader.Current();
        if (token.kind == Token::Kind::Literal) return LiteralValue(token);
        if (mReader.IsSymbol("(")) return Parenthesis();
        if (mReader.TakeWord("null")) return Make(Kind::Null);
        if (mReader.IsCall()) return Call();
        return ColumnName();
    }

    ExpressionPtr LiteralValue(const Token& token) {
        const Literal& literal = mReader.LiteralOf(token);
        ExpressionPtr result = Make(Kind::Literal);
        result->literal = token.literal;
        result->form = literal.form;
        result->wide = literal.wide;
        result->type = literal.type;
        mReader.Advance();
        return result;
    }

    ExpressionPtr Parenthesis() {
        mReader.ExpectSymbol("(");
        ExpressionPtr inner;
        if (mReader.TakeWord("select")) {
            inner = Make(Kind::Query);
            inner->query = ParseSelect(mReader);
        } else {
            inner = Condition();
        }
        mReader.ExpectSymbol(")");
        return inner;
    }

    std::unique_ptr<Select> SubQuery() {
        mReader.ExpectSymbol("(");
        mReader.ExpectWord("select");
        std::unique_ptr<Select> query = ParseSelect(mReader);
        mReader.ExpectSymbol(")");
        return query;
    }

    ExpressionPtr Call() {
        const std::string name = platform::LowerAscii(mReader.Current().text);
        if (name == "left" || name == "right") throw NotTranslated(name);
        if (name == "convert" || name == "cast") return Conversion(name == "cast");
        const BuiltInInfo* builtIn = FindBuiltIn(name);
        const bool aggregate = builtIn != nullptr && builtIn->isAggregate;
        if (!mReader.IsName()) mReader.Refuse();
        ExpressionPtr call = Make(aggregate ? Kind::Aggregate : Kind::Function);
        call->name = name;
        call->builtIn = builtIn;
        mReader.Advance();
        mReader.ExpectSymbol("(");
        if (aggregate) call->distinct = mReader.TakeWord("distinct");
        if (aggregate && builtIn->id == BuiltIn::Count && !call->distinct &&
            mReader.TakeSymbol("*")) {
            mReader.ExpectSymbol(")");
            return call;
        }
        if (!mReader.IsSymbol(")")) {
            do {
                call->operands.push_back(Sum());
            } while (mReader.TakeSymbol(","));
        }
        mReader.ExpectSymbol(")");
        return call;
    }

    ExpressionPtr Conversion(bool cast) {
        mReader.Advance();
        mReader.ExpectSymbol("(");
        ExpressionPtr result = Make(Kind::Convert);
        if (cast) {
            result->operands.push_back(Sum());
            mReader.ExpectWord("as");
            result->type = TypeOfConversion();
        } else {
            result->type = TypeOfConversion();
            mReader.ExpectSymbol(",");
            result->operands.push_back(Sum());
            if (mReader.TakeSymbol(",")) result->style = mReader.TakeFixedNumber();
        }
        mReader.ExpectSymbol(")");
        return result;
    }

    Type TypeOfConversion() {
        constexpr int kLengthWithoutOne = 30;
        const std::string name = mReader.TakeName();
        std::optional<Type> type = ParseType(name);
        if (!type) throw NotTranslated(name);
        if (TakesLength(name)) {
            type->length = kLengthWithoutOne;
            if (mReader.TakeSymbol("(")) {
                type->length = mReader.TakeFixedNumber();
                mReader.ExpectSymbol(")");
                if (type->length == 0) throw SyntaxError("0");
            }
        }
        return *type;
    }

    ExpressionPtr ColumnName() {
        ExpressionPtr column = Make(Kind::Column);
        column->name = mReader.TakeName();
        while (mReader.TakeSymbol(".")) {
            if (!column->qualifier.empty() &&
                !platform::EqualIgnoringCase(column->qualifier, "dbo")) {
                mReader.Refuse();
            }
            column->qualifier = std::move(column->name);
            if (mReader.TakeSymbol("*")) {
                column->name = "*";
                return column;
            }
            column->name = mReader.TakeName();
        }
        return column;
    }

    TokenReader& mReader;
};

}  // namespace

ExpressionPtr ParseExpression(TokenReader& reader) {
    return ExpressionParser(reader).Condition();
}

}  // namespace kelvane::tsql
