#include "ui/common/DeletionQuestion.h"

#include "level/TextureUsage.h"
#include "ui/common/EditorState.h"
#include "ui/common/IPromptService.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace {

QString Tr(const char* text)
{
    return QCoreApplication::translate("DeletionQuestion", text);
}

// So many range numbers fit in one status line beside the rest.
constexpr int NumbersShown = 6;

} // namespace

QString DeletionQuestion::LevelName(const EditorState& state)
{
    return QFileInfo(state.document().LevelFileName()).fileName();
}

bool DeletionQuestion::AskForTexture(EditorState& state, int index, const QString& number)
{
    const TextureUsage* usage = state.document().LevelUsage();
    if (!usage)
        return true;
    const qint64 on = usage->roomFaces.at(index) + usage->meshFaces.at(index);
    const qint64 after = usage->roomFaces.from(index + 1) + usage->meshFaces.from(index + 1);
    const QString text = Tr("%1 faces of %2 use texture %3, and %4 faces use the textures after it, which each move "
                            "down one place: in a level made with this list, those faces show other textures.\n\n"
                            "Delete texture %3?")
                             .arg(on)
                             .arg(LevelName(state), number)
                             .arg(after);
    return state.prompts().Confirm(text, Tr("Delete Texture"), Tr("Delete"));
}

bool DeletionQuestion::AskForSprite(EditorState& state, int index, const QString& number)
{
    const TextureUsage* usage = state.document().LevelUsage();
    if (!usage)
        return true;
    const QString text = Tr("%1 room sprites and %2 sequences of %3 use sprite %4 or the sprites after it, which "
                            "each move down one place in a level made with this list.\n\nDelete sprite %4?")
                             .arg(usage->roomSprites.from(index))
                             .arg(usage->sequenceEnds.from(index))
                             .arg(LevelName(state), number);
    return state.prompts().Confirm(text, Tr("Delete Sprite"), Tr("Delete"));
}

QString DeletionQuestion::Numbers(const QStringList& numbers)
{
    QStringList shown = numbers.mid(0, NumbersShown);
    if (numbers.size() > NumbersShown)
        shown << Tr("%1 more").arg(numbers.size() - NumbersShown);
    return shown.join(QStringLiteral(", "));
}

QString DeletionQuestion::TextureDeleted(const QString& number, const DeleteTextureCommand::Outcome& outcome)
{
    QString said = Tr("Deleted texture %1").arg(number);
    if (!outcome.shortened.isEmpty())
        said += Tr("; ranges that showed it, now without it: %1").arg(Numbers(outcome.shortened));
    if (!outcome.removed.isEmpty())
        said += Tr("; left with fewer than two textures and removed: ranges %1").arg(Numbers(outcome.removed));
    return said + Tr(". Edit, Undo brings %1 back.").arg(outcome.shortened.isEmpty() && outcome.removed.isEmpty()
                                                               ? Tr("it")
                                                               : Tr("all of it"));
}
