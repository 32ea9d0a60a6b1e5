#pragma once

#include "common/NumberText.h"
#include "level/BinaryReader.h"
#include "level/ReadTableRecords.h"
#include "level/TablePosition.h"
#include "list/tables/RecordTable.h"

#include <vector>

// The records of a table read into entries numbered by their places, their
// texts padded to as many digits as the table's number has ("000".."119"
// for 120). Only records wholly present in the file count.
template <class Entry>
void FillNumberedEntries(BinaryReader& file, const TablePosition& table, RecordTable<Entry>& entries)
{
    using Record = decltype(Entry::record);
    const QList<Record> records = ReadTableRecords<Record>(file, table);
    const auto width = qint16(NumberText::of(table.number).size());
    std::vector<Entry> filled;
    filled.reserve(size_t(records.size()));
    for (qsizetype i = 0; i < records.size(); ++i)
        filled.push_back(Entry{records[i], qint32(i), width});
    entries.assign(std::move(filled));
}
