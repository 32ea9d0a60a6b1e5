#include "list/SequenceCheck.h"

#include <limits>

namespace {

using Failure = SequenceCheck::Failure;
using Box = SequenceCheck::Box;

const QString TextureError = QStringLiteral("Texture Error");
const QString OffsetError = QStringLiteral("Offset Error");
const QString SequenceError = QStringLiteral("Sequence Error");

// Larger than any texture number a table can hold, far from overflowing.
constexpr qint64 Saturated = qint64(1) << 48;

std::optional<Failure> EmptyBox(const SequenceCheck::Input& in)
{
    if (in.start.isEmpty())
        return Failure{1, TextureError, QStringLiteral("Starting texture was not specified"), Box::Start};
    if (in.stop.isEmpty())
        return Failure{2, TextureError, QStringLiteral("Ending texture was not specified"), Box::None};
    if (in.object.isEmpty())
        return Failure{3, QStringLiteral("Object Unassigned"), QStringLiteral("Object was not specified"),
                       Box::Object};
    return std::nullopt;
}

std::optional<Failure> NotANumber(const SequenceCheck::Input& in)
{
    if (!SequenceCheck::WholeNumber(in.start))
        return Failure{4, TextureError, QStringLiteral("Starting texture offset must be a number"), Box::Start};
    if (!SequenceCheck::WholeNumber(in.stop))
        return Failure{5, TextureError, QStringLiteral("Ending texture offset must be a number"), Box::Stop};
    if (!SequenceCheck::ObjectNumber(in.object))
        return Failure{6, QStringLiteral("Object Error"), QStringLiteral("Object offset must be a number"),
                       Box::Object};
    return std::nullopt;
}

std::optional<Failure> OutOfRange(qint64 start, qint64 stop, qint64 object, qint64 available)
{
    if (start < 0)
        return Failure{7, OffsetError, QStringLiteral("Texture offset cannot be negative."), Box::Start};
    if (stop < 0)
        return Failure{8, OffsetError, QStringLiteral("Texture offset cannot be negative."), Box::Stop};
    if (object < 0)
        return Failure{9, OffsetError, QStringLiteral("Object offset cannot be negative."), Box::Object};
    if (start > available - 1)
        return Failure{10, TextureError, QStringLiteral("Starting texture is not available."), Box::None};
    if (stop > available - 1)
        return Failure{11, TextureError, QStringLiteral("Ending texture is not available."), Box::None};
    if (start > stop)
        return Failure{12, TextureError, QStringLiteral("Starting texture is after the Ending texture."), Box::None};
    return std::nullopt;
}

std::optional<Failure> NotContiguous(qint64 start, qint64 stop, const SequenceCheck::Input& in)
{
    if (in.previous && in.previous->last() >= start)
        return Failure{13, SequenceError,
                       QStringLiteral("The first sprite texture is already in use by the previous sequence."),
                       Box::None};
    if (in.previous && in.previous->last() < start - 1)
        return Failure{14, SequenceError,
                       QStringLiteral("A sprite texture is not assigned to any sequence between this sequence and "
                                      "the previous one."),
                       Box::None};
    if (!in.previous && start > 0)
        return Failure{15, SequenceError,
                       QStringLiteral("A sprite texture is not assigned to any sequence before this first sequence."),
                       Box::None};
    if (in.following && in.following->first <= stop)
        return Failure{16, SequenceError,
                       QStringLiteral("The last sprite texture is already in use by the following sequence."),
                       Box::None};
    // Reached only when the following sequence starts after stop, so this
    // never holds: a gap before the following sequence is accepted.
    if (in.following && in.following->first < stop + 1)
        return Failure{17, SequenceError,
                       QStringLiteral("A sprite texture is not assigned to any sequence betwen this sequence and "
                                      "the next one."),
                       Box::None};
    return std::nullopt;
}

} // namespace

std::optional<SequenceCheck::Failure> SequenceCheck::FirstFailure(const Input& input)
{
    if (auto failure = EmptyBox(input))
        return failure;
    if (auto failure = NotANumber(input))
        return failure;
    const qint64 start = *WholeNumber(input.start);
    const qint64 stop = *WholeNumber(input.stop);
    if (auto failure = OutOfRange(start, stop, *ObjectNumber(input.object), input.available))
        return failure;
    return NotContiguous(start, stop, input);
}

std::optional<qint64> SequenceCheck::WholeNumber(const QString& text)
{
    const QStringView number = QStringView(text).trimmed();
    qsizetype at = 0;
    bool negative = false;
    if (at < number.size() && (number[at] == QLatin1Char('-') || number[at] == QLatin1Char('+')))
        negative = number[at++] == QLatin1Char('-');
    if (at == number.size())
        return std::nullopt;
    qint64 value = 0;
    for (; at < number.size(); ++at) {
        const char16_t digit = number[at].unicode();
        if (digit < u'0' || digit > u'9')
            return std::nullopt;
        value = qMin(value * 10 + (digit - u'0'), Saturated);
    }
    return negative ? -value : value;
}

std::optional<qint64> SequenceCheck::ObjectNumber(const QString& text)
{
    const std::optional<qint64> value = WholeNumber(text);
    if (!value || *value > std::numeric_limits<qint32>::max() || *value < std::numeric_limits<qint32>::min())
        return std::nullopt;
    return value;
}
