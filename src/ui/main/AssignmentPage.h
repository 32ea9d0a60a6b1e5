#pragma once

#include "EditorPage.h"
#include "ListViewModel.h"

#include <memory>

namespace Ui {
class AssignmentPage;
}

// The "Assignation" page: which textures the level's polygons, objects and
// sprites use, and which nothing uses. Its lists stay empty until asked.
class AssignmentPage : public EditorPage
{
    Q_OBJECT

public:
    explicit AssignmentPage(EditorState& state, QWidget* parent = nullptr);
    ~AssignmentPage() override;

    ListViewModel& lsvPolygons() { return m_lsvPolygons; }
    ListViewModel& lsvMesh() { return m_lsvMesh; }
    ListViewModel& lsvSprite() { return m_lsvSprite; }
    ListViewModel& lsvNotAssign() { return m_lsvNotAssign; }
    Ui::AssignmentPage& ui() const { return *m_ui; }

private:
    std::unique_ptr<Ui::AssignmentPage> m_ui;
    ListViewModel m_lsvPolygons;
    ListViewModel m_lsvMesh;
    ListViewModel m_lsvSprite;
    ListViewModel m_lsvNotAssign;
};
