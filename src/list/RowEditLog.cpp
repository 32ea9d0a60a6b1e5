#include "list/RowEditLog.h"

bool RowEditLog::add(ListViewModel& model, const ListViewModel::Row& row)
{
    const int index = model.addRow(row.key, row.text, row.subItems);
    if (index < 0)
        return false;
    m_steps.push_back({Kind::Insert, &model, index, {}, model.row(index)});
    return true;
}

bool RowEditLog::remove(ListViewModel& model, int index)
{
    if (index < 0 || index >= model.count())
        return false;
    ListViewModel::Row before = model.row(index);
    model.removeAt(index);
    m_steps.push_back({Kind::Remove, &model, index, std::move(before), {}});
    return true;
}

bool RowEditLog::replace(ListViewModel& model, int index, const QString& text, const QStringList& subItems)
{
    if (index < 0 || index >= model.count())
        return false;
    ListViewModel::Row before = model.row(index);
    model.setRow(index, text, subItems);
    ListViewModel::Row after = model.row(index);
    if (after.text == before.text && after.subItems == before.subItems)
        return false;
    m_steps.push_back({Kind::Replace, &model, index, std::move(before), std::move(after)});
    return true;
}

void RowEditLog::undo()
{
    for (auto step = m_steps.crbegin(); step != m_steps.crend(); ++step)
        undoStep(*step);
}

void RowEditLog::redo()
{
    for (const Step& step : m_steps)
        redoStep(step);
}

void RowEditLog::undoStep(const Step& step)
{
    ListViewModel& model = *step.model;
    switch (step.kind) {
    case Kind::Insert:
        model.removeAt(step.index);
        break;
    case Kind::Remove:
        model.insertRow(step.index, step.before);
        break;
    case Kind::Replace:
        model.setRow(step.index, step.before.text, step.before.subItems);
        break;
    }
}

void RowEditLog::redoStep(const Step& step)
{
    ListViewModel& model = *step.model;
    switch (step.kind) {
    case Kind::Insert:
        model.insertRow(step.index, step.after);
        break;
    case Kind::Remove:
        model.removeAt(step.index);
        break;
    case Kind::Replace:
        model.setRow(step.index, step.after.text, step.after.subItems);
        break;
    }
}
