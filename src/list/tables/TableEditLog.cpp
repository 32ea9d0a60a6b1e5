#include "list/tables/TableEditLog.h"

void TableEditLog::undo()
{
    for (auto step = m_steps.rbegin(); step != m_steps.rend(); ++step)
        (*step)->undo();
}

void TableEditLog::redo()
{
    for (const std::unique_ptr<AnyStep>& step : m_steps)
        step->redo();
}
