#include "list/CSmartArray.h"

#include <QMetaType>
#include <QString>

#include <algorithm>
#include <limits>

namespace {

constexpr short NotFound = -99;

// Slot 0 and the spare slot: the storage of an array without items.
constexpr qsizetype EmptySize = 2;

bool isObjectReference(const QVariant& value)
{
    return value.metaType().flags().testFlag(QMetaType::PointerToQObject);
}

bool isNumber(const QVariant& value)
{
    if (value.metaType() == QMetaType::fromType<Currency>())
        return true;
    switch (value.typeId()) {
    case QMetaType::Char:
    case QMetaType::SChar:
    case QMetaType::UChar:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Long:
    case QMetaType::ULong:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Float:
    case QMetaType::Double:
        return true;
    default:
        // A bool is a flag, not a table value.
        return false;
    }
}

// What the array holds: a live object, a number or some text. Everything
// else (an empty variant, "", a null object, a flag) would only show up as a
// blank row.
bool isAcceptable(const QVariant& value)
{
    if (isObjectReference(value))
        return value.value<QObject*>() != nullptr;
    if (isNumber(value))
        return true;
    return value.typeId() == QMetaType::QString && !value.toString().isEmpty();
}

bool isSameItem(const QVariant& stored, const QVariant& wanted)
{
    const bool storedIsObject = isObjectReference(stored);
    if (storedIsObject != isObjectReference(wanted))
        return false;
    if (storedIsObject)
        return stored.value<QObject*>() == wanted.value<QObject*>();
    return stored == wanted;
}

qint16 toInt16(qint64 value)
{
    return qint16(std::clamp<qint64>(value, std::numeric_limits<qint16>::min(),
                                     std::numeric_limits<qint16>::max()));
}

} // namespace

CSmartArray::CSmartArray(QObject* parent)
    : QObject(parent)
    , m_items(EmptySize)
{
}

Currency CSmartArray::NumberOfItemInArray()
{
    m_count = Currency(UpperBound() - 1);
    return m_count;
}

bool CSmartArray::AddOneItem(const QVariant& AnyItem)
{
    if (!isAcceptable(AnyItem))
        return false;

    // After ClearArray the count may be stale and larger than the storage;
    // the storage is grown from the count all the same, so the new item lands
    // at count + 1 and the slots in between read as empty items.
    const qint64 index = m_count.toWhole() + 1;
    m_items.resize(index + 2);
    m_items[index] = AnyItem;
    m_count = Currency(index);
    emit Resized(Currency(index - 1));
    return true;
}

bool CSmartArray::RemoveOneItemByIndex(Currency AnyItemIndex)
{
    if (!IsIndexValid(AnyItemIndex))
        return false;

    const qint64 count = m_count.toWhole();
    m_items.remove(AnyItemIndex.toWhole());
    m_items.resize(count + 1);
    m_count = Currency(count - 1);
    emit Resized(Currency(count - 2));
    return true;
}

QVariant CSmartArray::GetOneItemByIndex(Currency AnyItemIndex)
{
    if (!IsIndexValid(AnyItemIndex))
        return {};
    return m_items.at(AnyItemIndex.toWhole());
}

bool CSmartArray::SetOneItemByIndex(const QVariant& AnyItem, Currency AnyItemIndex)
{
    if (!isAcceptable(AnyItem) || !IsIndexValid(AnyItemIndex))
        return false;
    m_items[AnyItemIndex.toWhole()] = AnyItem;
    return true;
}

bool CSmartArray::ClearArray()
{
    m_items = QList<QVariant>(EmptySize);
    emit Cleared(true);
    return true;
}

short CSmartArray::IsValueThere(const QVariant& AnyItem)
{
    // Nothing the array refuses can be in it; without this an empty probe
    // would match the spare slot or the gaps left by a stale count.
    if (!isAcceptable(AnyItem))
        return NotFound;

    // The answer is 16 bits wide, so the scan stops where it could no longer
    // report what it finds.
    const qsizetype last = std::min<qsizetype>(UpperBound(), std::numeric_limits<short>::max());
    for (qsizetype index = 1; index <= last; ++index) {
        if (isSameItem(m_items.at(index), AnyItem))
            return short(index);
    }
    return NotFound;
}

bool CSmartArray::IsIndexValid(Currency index)
{
    if (m_items.size() <= EmptySize) {
        emit Cleared(true);
        return false;
    }
    // Count and storage agree whenever the storage holds items; the bound
    // keeps every read inside the storage should they ever part.
    const qint64 whole = index.toWhole();
    if (whole >= 1 && whole <= m_count.toWhole() && whole <= UpperBound())
        return true;
    emit Exceed(toInt16(whole));
    return false;
}
