#include "macro/language/token.h"

#include "macro/language/program.h"
#include "macro/language/run_state.h"

#include <algorithm>

namespace {

constexpr qsizetype FunctionHead = 5; // "[chr:"

/// The last of "+", "-", "*" and "/" that a token holds behind its first character, in that order.
struct FoundOperator
{
    Operator Op = Operator::Assign; ///< Assign: none
    QChar Sign;
};
FoundOperator FindOperator(QStringView token)
{
    constexpr std::pair<char16_t, Operator> Signs[] = {
        {u'/', Operator::Divide}, {u'*', Operator::Multiply}, {u'-', Operator::Subtract}, {u'+', Operator::Add}};
    for (const auto& [sign, op] : Signs)
        if (token.size() > 1 && token.sliced(1).contains(sign))
            return {op, sign};
    return {};
}

/// Reads tokens and what lies in them.
class TokenReader
{
public:
    TokenReader(VariableTable& ofRun, bool keep) : variables(ofRun), lasting(keep) {}

    Token Read(const QString& written, int depth) const
    {
        Token token;
        token.Written = written;
        if (depth > DeepestToken) {
            token.What = Token::Kind::TooDeep;
            return token;
        }
        if (ReadExpression(token, depth) || ReadVariable(token) || ReadTag(token, depth))
            return token;
        token.Told = Value(written);
        token.Told.IsNumeric(); // found out now, once
        token.Shown = Value(PipeToSpace(written));
        token.Shown.IsNumeric();
        return token;
    }

private:
    bool ReadExpression(Token& token, int depth) const
    {
        if (!token.Written.startsWith(u'(') || !token.Written.endsWith(u')'))
            return false;
        const FoundOperator found = FindOperator(token.Written);
        if (found.Op == Operator::Assign)
            return false;
        token.What = Token::Kind::Expression;
        token.Op = found.Op;
        token.Written = token.Written.sliced(1).chopped(1);
        const QStringList pieces = token.Written.split(found.Sign);
        token.Parts.push_back(Read(pieces.at(0), depth + 1));
        token.Parts.push_back(Read(pieces.at(1), depth + 1));
        return true;
    }

    bool ReadVariable(Token& token) const
    {
        if (!token.Written.startsWith(u'$'))
            return false;
        token.What = Token::Kind::Variable;
        token.Slot = lasting ? &variables.Mention(token.Written) : variables.Find(token.Written);
        if (!token.Slot)
            token.What = Token::Kind::Unknown;
        return true;
    }

    bool ReadTag(Token& token, int depth) const
    {
        if (!token.Written.startsWith(u'['))
            return false;
        if (const PlainTag* plain = FindPlainTag(token.Written)) {
            token.What = Token::Kind::Tag;
            token.Plain = plain;
            return true;
        }
        const FunctionTag* function = FindFunctionTag(token.Written);
        if (!function)
            return false;
        token.What = Token::Kind::Function;
        token.Function = function;
        const QString inner = token.Written.sliced(FunctionHead).chopped(token.Written.size() > FunctionHead).toLower();
        const QStringList parts = function->Parted ? inner.split(u':') : QStringList{inner};
        for (const QString& part : parts)
            token.Parts.push_back(Read(part, depth + 1));
        return true;
    }

    VariableTable& variables;
    const bool lasting;
};

void FailUndeclared(RunState& run, const Token& token)
{
    run.Fail(QStringLiteral("The variable: ") + token.Written + QStringLiteral(" has not been dimmed"));
}

void EvaluateExpression(RunState& run, const Token& token, Value& result)
{
    Value scratch;
    result = Evaluate(run, token.Parts[0], scratch);
    if (run.Failed())
        return;
    const Value& right = Evaluate(run, token.Parts[1], scratch);
    if (run.Failed())
        return;
    if (const char* fault = ApplyOperator(token.Op, result, right))
        run.Fail(fault);
}

const Value& EvaluateInner(RunState& run, const Token& token, Value& scratch)
{
    switch (token.What) {
    case Token::Kind::Tag:
        scratch = token.Plain->Read(run);
        break;
    case Token::Kind::Function: {
        TagArguments arguments(run, token.Parts);
        scratch = token.Function->Read(run, arguments);
        break;
    }
    case Token::Kind::Expression:
        EvaluateExpression(run, token, scratch);
        break;
    case Token::Kind::TooDeep:
        run.Fail("Expression is nested too deep!");
        break;
    default:
        FailUndeclared(run, token);
        break;
    }
    return scratch;
}

} // namespace

Token ReadToken(const QString& written, VariableTable& variables, bool lasting)
{
    return TokenReader(variables, lasting).Read(written, 0);
}

const Value& Evaluate(RunState& run, const Token& token, Value& scratch)
{
    const Value* known = KnownValue(token);
    return known ? *known : EvaluateInner(run, token, scratch);
}

const Value& EvaluateMember(RunState& run, const Token& token, const Value& key, Value& scratch)
{
    const Value& value = Evaluate(run, token, scratch);
    if (key.IsEmpty() || !value.BeginsWith(u'?') || run.Failed())
        return value;
    const Group* group = run.Groups.Find(value.Text());
    if (!group) {
        run.Fail(QStringLiteral("The Group ") + value.Text() + QStringLiteral(" doesn't exist."));
        return value;
    }
    return group->Has(key) ? key : value;
}

Value EvaluateText(RunState& run, const QString& text)
{
    Value scratch;
    return Evaluate(run, ReadToken(text, run.Variables, false), scratch);
}

qint32 TextToLong(RunState& run, const Value& value)
{
    const std::optional<qint32> number = value.Long();
    if (!number)
        run.Fail(RangeMessage);
    return number.value_or(0);
}

const Value& ShownValue(const Token& token, const Value& value, Value& scratch)
{
    if (&value == &token.Told)
        return token.Shown;
    if (value.IsWhole() || !value.Text().contains(u'|'))
        return value;
    scratch = Value(PipeToSpace(value.Text()));
    return scratch;
}

int Arguments::Count() const
{
    return int(line.Tokens.size()) - 1;
}

const QString& Arguments::Written(int index) const
{
    return line.Tokens[size_t(index)].Written;
}

Value Arguments::Shown(int index)
{
    if (state.Failed())
        return {};
    Value scratch;
    const Token& token = line.Tokens[size_t(index)];
    const Value& value = Evaluate(state, token, scratch);
    return ShownValue(token, value, scratch);
}

QString Arguments::Text(int index)
{
    if (state.Failed())
        return {};
    Value scratch, shown;
    const Token& token = line.Tokens[size_t(index)];
    return ShownValue(token, Evaluate(state, token, scratch), shown).Text();
}

Value Arguments::Raw(int index)
{
    Value scratch;
    return state.Failed() ? scratch : Evaluate(state, line.Tokens[size_t(index)], scratch);
}

qint32 Arguments::Number(int index)
{
    if (state.Failed())
        return 0;
    Value scratch;
    const Value& value = Evaluate(state, line.Tokens[size_t(index)], scratch);
    return state.Failed() ? 0 : TextToLong(state, value);
}

Variable* Arguments::NamedVariable(int index)
{
    const Token& token = line.Tokens[size_t(index)];
    if (token.What == Token::Kind::Variable)
        return token.Slot->Declared ? token.Slot : nullptr;
    return state.Variables.Find(token.Written);
}

QString Arguments::Word(int index)
{
    return Text(index).toLower();
}

bool Arguments::CheckShape()
{
    if (!line.ShapeFault.isEmpty())
        state.Fail(line.ShapeFault);
    return line.ShapeFault.isEmpty();
}

Value TagArguments::Raw(int index)
{
    Value scratch;
    return state.Failed() ? scratch : Evaluate(state, parts[size_t(index)], scratch);
}

Value TagArguments::Shown(int index)
{
    const Value value = Raw(index);
    return value.IsWhole() ? value : Value(PipeToSpace(value.Text()));
}

qint32 TagArguments::Number(int index)
{
    const Value value = Raw(index);
    return state.Failed() ? 0 : TextToLong(state, value);
}
