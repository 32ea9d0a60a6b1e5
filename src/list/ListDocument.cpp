#include "list/ListDocument.h"

#include "list/AddEntryCommand.h"
#include "list/BuildAnimationCommand.h"
#include "list/DeleteAnimationCommand.h"
#include "list/DeleteEntryCommand.h"
#include "list/DeleteTextureCommand.h"
#include "list/EditEntryCommand.h"

#include <QCoreApplication>
#include <QUndoStack>

ListDocument::ListDocument(QObject* parent)
    : QObject(parent)
    , m_views(m_tables)
    , m_undoStack(std::make_unique<QUndoStack>())
{
    connect(m_undoStack.get(), &QUndoStack::cleanChanged, this, [this](bool clean) { emit modifiedChanged(!clean); });
}

ListDocument::~ListDocument() = default;

bool ListDocument::isModified() const
{
    return !m_undoStack->isClean();
}

void ListDocument::markSaved()
{
    m_undoStack->setClean();
}

void ListDocument::clearHistory()
{
    m_undoStack->clear();
}

void ListDocument::close()
{
    clearHistory();
    m_views.clear();
    m_listFileName.clear();
    m_levelFileName.clear();
    m_bitmapFileName.clear();
    m_levelUsage.clear();
    m_isListOpen = false;
    m_isBitmapLoaded = false;
    m_isDataFromLevel = false;
    m_numberOfTiles = 0;
}

bool ListDocument::Push(std::unique_ptr<TableEditCommand> command)
{
    if (!command->apply())
        return false;
    m_undoStack->push(command.release());
    return true;
}

namespace {

QString Noun(const char* noun)
{
    return QCoreApplication::translate("ListDocument", noun);
}

} // namespace

bool ListDocument::AddTexture(const TextureEntry& entry)
{
    return Push(std::make_unique<AddEntryCommand<TextureRowFormat>>(m_tables.textures, Noun("Texture"), entry));
}

bool ListDocument::EditTexture(qint32 number, const TextureEntry& edited)
{
    return Push(
        std::make_unique<EditEntryCommand<TextureRowFormat>>(m_tables.textures, Noun("Texture"), number, edited));
}

bool ListDocument::EditTexture(qint32 number, const ObjectTexture& record)
{
    return EditTexture(number, TextureEntry{record});
}

bool ListDocument::DeleteTexture(qint32 number, DeleteTextureCommand::Outcome* outcome)
{
    return Push(std::make_unique<DeleteTextureCommand>(m_tables, number, outcome));
}

bool ListDocument::AddSprite(const SpriteTextureEntry& entry)
{
    return Push(std::make_unique<AddEntryCommand<SpriteRowFormat>>(m_tables.sprites, Noun("Sprite"), entry));
}

bool ListDocument::EditSprite(qint32 number, const SpriteTexture& record)
{
    return Push(std::make_unique<EditEntryCommand<SpriteRowFormat>>(m_tables.sprites, Noun("Sprite"), number,
                                                                    SpriteTextureEntry{record}));
}

bool ListDocument::DeleteSprite(qint32 number)
{
    return Push(std::make_unique<DeleteEntryCommand<SpriteRowFormat>>(m_tables.sprites, Noun("Sprite"), number));
}

bool ListDocument::AddSequence(const SequenceEntry& entry)
{
    return Push(std::make_unique<AddEntryCommand<SequenceRowFormat>>(m_tables.sequences, Noun("Sequence"), entry));
}

bool ListDocument::EditSequence(qint32 number, const SpriteSequence& record)
{
    return Push(std::make_unique<EditEntryCommand<SequenceRowFormat>>(m_tables.sequences, Noun("Sequence"), number,
                                                                      SequenceEntry{record}));
}

bool ListDocument::DeleteSequence(qint32 number)
{
    return Push(
        std::make_unique<DeleteEntryCommand<SequenceRowFormat>>(m_tables.sequences, Noun("Sequence"), number));
}

bool ListDocument::AddAnimation(qint32 number, const QList<quint16>& textures)
{
    return Push(std::make_unique<BuildAnimationCommand>(m_tables, BuildAnimationCommand::Build::New, number, textures));
}

bool ListDocument::EditAnimation(qint32 number, const QList<quint16>& textures)
{
    return Push(
        std::make_unique<BuildAnimationCommand>(m_tables, BuildAnimationCommand::Build::Replace, number, textures));
}

bool ListDocument::DeleteAnimation(qint32 number)
{
    return Push(std::make_unique<DeleteAnimationCommand>(m_tables, number));
}

const TextureUsage* ListDocument::LevelUsage(FileError* error)
{
    if (m_levelFileName.isEmpty()) {
        if (error)
            *error = {};
        return nullptr;
    }
    return m_levelUsage.usageOf(m_levelFileName, error);
}

QString ListDocument::TableName(const ListRows& view) const
{
    const std::pair<const ListRows*, const char*> names[] = {
        {&m_views.lsvTextures, "Textures"},     {&m_views.lsvAnims, "Animations"},
        {&m_views.lsvAnimDetails, "Animation Textures"}, {&m_views.lsvSprites, "Sprites"},
        {&m_views.lsvSequences, "Sequences"},   {&m_views.lsvSequenceDetails, "Sequence Details"}};
    for (const auto& [model, name] : names) {
        if (model == &view)
            return tr(name);
    }
    return {};
}
