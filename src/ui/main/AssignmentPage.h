#pragma once

#include "ui/common/EditorPage.h"
#include "list/rows/ListViewModel.h"

#include <initializer_list>
#include <memory>
#include <vector>

class ListView;
namespace Ui {
class AssignmentPage;
}

// The "Assignation" page: which textures the level's room polygons, object
// meshes and sprites use, and which object textures nothing uses. The lists
// stay empty until the user asks (Find Usage); numbers chosen in one of them
// are outlined on the bitmap by Draw.
class AssignmentPage : public EditorPage
{
    Q_OBJECT

public:
    explicit AssignmentPage(EditorState& state, QWidget* parent = nullptr);
    ~AssignmentPage() override;

    void ClearPage() override;
    void ListLoaded() override;
    // The usage is the level's, which no edit of the list changes.
    void DocumentRewound() override {}

    // Reads the usage from the level of the open list into the four lists.
    void FindUsage();
    // Outlines the numbers chosen in the list that has a choice.
    void DrawChosen();

    ListViewModel& lsvPolygons() { return m_lsvPolygons; }
    ListViewModel& lsvMesh() { return m_lsvMesh; }
    ListViewModel& lsvSprite() { return m_lsvSprite; }
    ListViewModel& lsvNotAssign() { return m_lsvNotAssign; }
    Ui::AssignmentPage& ui() const { return *m_ui; }

private:
    void ClearUsage();
    static void Fill(ListViewModel& list, const QList<int>& numbers, const QString& prefix);
    // The numbers of the rows chosen in each view, each view's in rising
    // order, one view after another.
    static std::vector<qint32> ChosenNumbers(std::initializer_list<const ListView*> views);

    std::unique_ptr<Ui::AssignmentPage> m_ui;
    ListViewModel m_lsvPolygons;
    ListViewModel m_lsvMesh;
    ListViewModel m_lsvSprite;
    ListViewModel m_lsvNotAssign;
};
