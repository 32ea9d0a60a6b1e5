#include "list/LevelTableReader.h"

#include "level/BinaryReader.h"
#include "level/C_LevelInfo.h"
#include "level/ReadOnlyFile.h"
#include "list/m_SpriteList.h"
#include "list/m_TextureList.h"

#include <QFile>

bool LevelTableReader::ReadIntoViews(const C_LevelInfo& level, ListViewModel& lsvTextures,
                                     ListViewModel& lsvAnims, ListViewModel& lsvAnimDetails,
                                     ListViewModel& lsvSprites, ListViewModel& lsvSequences,
                                     ListViewModel& lsvSequenceDetails, FileError* error)
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
    const LevelWalk::Result& tables = level.Walk();
    m_TextureList::FillObjectTextures(reader, tables.objectTexture, lsvTextures);
    m_SpriteList::FillSprites(reader, tables.spriteTexture, lsvSprites);
    m_TextureList::FillAnimations(reader, tables.animatedTexture, lsvAnims, lsvAnimDetails);
    m_SpriteList::FillSequences(reader, tables.spriteSequence, lsvSequences, lsvSequenceDetails);
    return true;
}
