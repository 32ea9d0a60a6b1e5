#include "list/LevelTableReader.h"

#include "level/BinaryReader.h"
#include "level/C_LevelInfo.h"
#include "level/ReadOnlyFile.h"
#include "list/m_SpriteList.h"
#include "list/m_TextureList.h"

#include <QFile>

bool LevelTableReader::ReadIntoTables(const C_LevelInfo& level, ListTables& tables, FileError* error)
{
    FileError failure;
    QFile file(level.FileName());
    if (level.FileName().isEmpty())
        failure = FileError::reading(level.FileName(), QStringLiteral("no level was given"));
    else if (const QString cause = level.TablesUnusableCause(); !cause.isEmpty())
        failure = FileError::reading(level.FileName(), cause);
    else
        ReadOnlyFile::open(file, failure);
    if (failure.failed()) {
        if (error)
            *error = failure;
        return false;
    }
    BinaryReader reader(file, 1 << 16);
    const LevelWalk::Result& walked = level.Walk();
    m_TextureList::FillObjectTextures(reader, walked.objectTexture, tables.textures);
    m_SpriteList::FillSprites(reader, walked.spriteTexture, tables.sprites);
    m_TextureList::FillAnimations(reader, walked.animatedTexture, tables);
    m_SpriteList::FillSequences(reader, walked.spriteSequence, tables.sequences);
    return true;
}
