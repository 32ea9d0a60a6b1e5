#include "ui/main/AssignmentPage.h"

#include "ui/common/BusyCursor.h"
#include "ui/common/EditorState.h"
#include "ui/common/ListView.h"
#include "level/TextureUsage.h"
#include "ui_AssignmentPage.h"

#include <QDir>
#include <QItemSelectionModel>

AssignmentPage::AssignmentPage(EditorState& state, QWidget* parent)
    : EditorPage(state, parent)
    , m_ui(std::make_unique<Ui::AssignmentPage>())
    , m_lsvPolygons({QStringLiteral("Texture #")})
    , m_lsvMesh({QStringLiteral("Texture #")})
    , m_lsvSprite({QStringLiteral("Texture #")})
    , m_lsvNotAssign({QStringLiteral("Texture #")})
{
    m_ui->setupUi(this);
    const QList<std::pair<ListView*, ListViewModel*>> lists = {{m_ui->lsvPolygons, &m_lsvPolygons},
                                                               {m_ui->lsvMesh, &m_lsvMesh},
                                                               {m_ui->lsvSprite, &m_lsvSprite},
                                                               {m_ui->lsvNotAssign, &m_lsvNotAssign}};
    for (const auto& [view, model] : lists) {
        view->setListModel(model);
        // Several numbers are drawn at once.
        view->setSelectionMode(QAbstractItemView::ExtendedSelection);
        // Choosing in one list clears the choice in the others: Draw outlines one kind.
        connect(view, &ListView::ItemClick, this, [this, view = view, lists] {
            for (const auto& other : lists) {
                if (other.first != view)
                    other.first->clearSelection();
            }
        });
    }
    connect(m_ui->cmdAssign, &QPushButton::clicked, this, &AssignmentPage::FindUsage);
    connect(m_ui->cmdAssignDraw, &QPushButton::clicked, this, &AssignmentPage::DrawChosen);
}

AssignmentPage::~AssignmentPage() = default;

void AssignmentPage::ClearPage()
{
    ClearUsage();
}

void AssignmentPage::ListLoaded()
{
    // The usage belongs to the level of the list it was found for.
    ClearUsage();
}

void AssignmentPage::ClearUsage()
{
    for (ListViewModel* list : {&m_lsvPolygons, &m_lsvMesh, &m_lsvSprite, &m_lsvNotAssign})
        list->clear();
}

void AssignmentPage::FindUsage()
{
    ClearUsage();
    const QString level = m_state.document().LevelFileName();
    if (level.isEmpty()) {
        m_state.ShowStatus(tr("This list belongs to no level: there is no usage to find."));
        return;
    }
    FileError error;
    const TextureUsage* usage = nullptr;
    {
        BusyCursor busy;
        usage = m_state.document().LevelUsage(&error);
    }
    if (!usage) {
        m_state.ShowStatus(tr("No usage found: %1").arg(error.text()));
        return;
    }
    Fill(m_lsvPolygons, usage->polygons, QStringLiteral("P"));
    Fill(m_lsvMesh, usage->objects, QStringLiteral("M"));
    Fill(m_lsvSprite, usage->sprites, QStringLiteral("S"));
    Fill(m_lsvNotAssign, usage->unused, QStringLiteral("N"));
    // A level cut short still shows what its bytes held, and says so.
    const QString of = usage->complete ? QDir::toNativeSeparators(level)
                                       : tr("%1 (partial: %2)").arg(QDir::toNativeSeparators(level), usage->partialNote());
    m_state.ShowStatus(tr("Usage of %1: %2 textures on polygons, %3 on objects, %4 sprites, %5 not assigned.")
                           .arg(of)
                           .arg(usage->polygons.size())
                           .arg(usage->objects.size())
                           .arg(usage->sprites.size())
                           .arg(usage->unused.size()));
}

void AssignmentPage::Fill(ListViewModel& list, const QList<int>& numbers, const QString& prefix)
{
    std::vector<ListViewModel::Row> rows;
    rows.reserve(size_t(numbers.size()));
    for (int number : numbers)
        rows.push_back({prefix + QString::number(number), QString::number(number), {}, Qt::Unchecked});
    list.appendRows(std::move(rows));
}

std::vector<qint32> AssignmentPage::ChosenNumbers(std::initializer_list<const ListView*> views)
{
    std::vector<qint32> numbers;
    for (const ListView* view : views) {
        const auto first = numbers.size();
        for (int row : view->selectedModelRows())
            numbers.push_back(view->listModel()->text(row).toInt());
        std::sort(numbers.begin() + std::ptrdiff_t(first), numbers.end());
    }
    return numbers;
}

void AssignmentPage::DrawChosen()
{
    m_state.lsvDrawList.clear();
    m_state.lsvSpriteDrawLisr.clear();
    if (m_state.document().IsBitmapLoaded()) {
        m_state.AppendTextureOutlines(ChosenNumbers({m_ui->lsvPolygons, m_ui->lsvMesh, m_ui->lsvNotAssign}));
        m_state.AppendSpriteOutlines(ChosenNumbers({m_ui->lsvSprite}));
        m_state.ShowStatus(tr("Outlined %1 textures and %2 sprites.")
                               .arg(m_state.lsvDrawList.count())
                               .arg(m_state.lsvSpriteDrawLisr.count()));
    } else {
        m_state.ShowStatus(tr("No bitmap is loaded: there is nothing to outline on."));
    }
    m_state.RedrawOutlines();
    // The chosen textures may lie far down a level's tiles: show where they start.
    m_state.ShowFirstOutline();
}

