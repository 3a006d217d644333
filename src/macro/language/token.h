#pragma once

#include "macro/language/arithmetic.h"
#include "macro/language/symbols.h"
#include "macro/language/word_tables.h"

#include <vector>

/// One argument as it was read: what it is and what it refers to, found out once. Only a whole token can be a
/// variable, a tag or an expression.
struct Token
{
    enum class Kind : quint8 { Plain, Variable, Unknown, Tag, Function, Expression, TooDeep };

    Kind What = Kind::Plain;
    Operator Op = Operator::Assign; ///< of an expression
    QString Written;                ///< an expression is without its brackets
    Value Told;                     ///< of a plain token: what it says
    Value Shown;                    ///< the same with blanks for "|"
    union {
        Variable* Slot = nullptr;
        const PlainTag* Plain;
        const FunctionTag* Function;
    };
    std::vector<Token> Parts; ///< operands of an expression, arguments of a function tag
};

/// How deep brackets and tags may lie in each other.
constexpr int DeepestToken = 200;

/// Reads a token. Variables that nobody has mentioned yet are mentioned, or, with `lasting` off, unknown: for tokens
/// that a run makes up and drops again.
Token ReadToken(const QString& written, VariableTable& variables, bool lasting = true);

/// The value of a token; `scratch` holds it if nothing else does. Ask RunState::Failed afterwards.
const Value& Evaluate(RunState& run, const Token& token, Value& scratch);

/// A token's value if it needs no work to get at; else null.
inline const Value* KnownValue(const Token& token)
{
    if (token.What == Token::Kind::Plain)
        return &token.Told;
    return token.What == Token::Kind::Variable && token.Slot->Declared ? &token.Slot->Held : nullptr;
}

/// Where a token's value stands for as long as the token lives, if it stands anywhere. What a variable that was never
/// made holds is no whole number.
inline const Value* PlaceOfValue(const Token& token)
{
    if (token.What == Token::Kind::Plain)
        return &token.Told;
    return token.What == Token::Kind::Variable ? &token.Slot->Held : nullptr;
}

/// The same for what `if` and `case` compare with: a group's name gives `key` itself if the group has it as an item.
const Value& EvaluateMember(RunState& run, const Token& token, const Value& key, Value& scratch);

/// Reads and evaluates a text that the run came by.
Value EvaluateText(RunState& run, const QString& text);

/// The number in a value; 0 with the range message if it is too large.
qint32 TextToLong(RunState& run, const Value& value);

/// The text of a value with blanks for "|".
const Value& ShownValue(const Token& token, const Value& value, Value& scratch);

/// The arguments of a line's command, from 1. Once the run has failed nothing is evaluated any more.
class Arguments
{
public:
    Arguments(RunState& run, ProgramLine& ofLine) : state(run), line(ofLine) {}

    int Count() const;
    const QString& Written(int index) const; ///< as it stands in the line
    QString Text(int index);                 ///< evaluated, blanks for "|"
    Value Shown(int index);                  ///< the same as a value
    Value Raw(int index);                    ///< evaluated, "|" kept
    qint32 Number(int index);
    QString Word(int index);            ///< evaluated, lower case
    Variable* NamedVariable(int index); ///< whose name stands there, if it is declared; else null

    /// The test of the command's shape, for commands that make it themselves. False: the run has failed.
    bool CheckShape();
    ProgramLine& Line() const { return line; }

private:
    RunState& state;
    ProgramLine& line;
};

/// The arguments of a function tag, from 0.
class TagArguments
{
public:
    TagArguments(RunState& run, const std::vector<Token>& told) : state(run), parts(told) {}

    int Count() const { return int(parts.size()); }
    Value Shown(int index); ///< evaluated, blanks for "|"
    Value Raw(int index);
    qint32 Number(int index);

private:
    RunState& state;
    const std::vector<Token>& parts;
};
