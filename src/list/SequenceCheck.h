#pragma once

#include <QString>

#include <optional>

// The checks a typed sprite sequence passes before it is stored, in their
// order; the first that fails is the one reported. Sequences stay contiguous:
// a sequence begins right after the previous one ends.
class SequenceCheck
{
public:
    // The run of sprite textures of a stored sequence.
    struct Run
    {
        qint64 first = 0;
        qint64 number = 0;
        qint64 last() const { return first + number - 1; }
    };

    // The box the caret goes back to after a failure.
    enum class Box { None, Start, Stop, Object };

    struct Failure
    {
        int rule = 0; // 1 to 17
        QString title;
        QString text;
        Box focus = Box::None;
    };

    // The typed texts, the number of sprite textures there are, and the
    // sequences before and after the one being stored, when there are.
    struct Input
    {
        QString start;
        QString stop;
        QString object;
        qint64 available = 0;
        std::optional<Run> previous;
        std::optional<Run> following;
    };

    // The first rule the input breaks; nothing when it may be stored.
    static std::optional<Failure> FirstFailure(const Input& input);

    // The whole number a box holds: optional blanks and sign, then decimal
    // digits only. A fraction ("2.5"), an exponent or any other character
    // makes it no number. Values too long for 64 bits saturate, so a huge
    // texture number is still merely "not available".
    static std::optional<qint64> WholeNumber(const QString& text);
    // The object number must also fit the sequence record's 32-bit field.
    static std::optional<qint64> ObjectNumber(const QString& text);
};
