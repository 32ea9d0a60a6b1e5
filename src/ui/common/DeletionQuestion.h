#pragma once

#include "list/DeleteTextureCommand.h"

#include <QString>

class EditorState;

// The words around deleting an object texture or a sprite texture of a list
// made from a level. Every texture after the deleted one moves down one place
// in a level the list is inserted into, while the level's faces, sprites and
// sequences keep the numbers they name; so before the delete the user is told
// how many of them name the texture and the ones after it, and chooses
// Delete or Cancel. A list without a readable level asks nothing.
class DeletionQuestion
{
public:
    // True to go on with the delete of the texture at index (shown as number).
    static bool AskForTexture(EditorState& state, int index, const QString& number);
    static bool AskForSprite(EditorState& state, int index, const QString& number);

    // The status line after an object texture was deleted: the ranges that
    // lost it, those removed with it, and the way back.
    static QString TextureDeleted(const QString& number, const DeleteTextureCommand::Outcome& outcome);

private:
    static QString LevelName(const EditorState& state);
    static QString Numbers(const QStringList& numbers);
};
