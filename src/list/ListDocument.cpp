#include "list/ListDocument.h"

#include "list/AddSequenceCommand.h"
#include "list/AddSpriteCommand.h"
#include "list/AddTextureCommand.h"
#include "list/BuildAnimationCommand.h"
#include "list/DeleteAnimationCommand.h"
#include "list/DeleteSequenceCommand.h"
#include "list/DeleteSpriteCommand.h"
#include "list/DeleteTextureCommand.h"
#include "list/EditSequenceCommand.h"
#include "list/EditSpriteCommand.h"
#include "list/EditTextureCommand.h"

#include <QUndoStack>

ListDocument::ListDocument(QObject* parent)
    : QObject(parent)
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

bool ListDocument::Push(std::unique_ptr<RowEditCommand> command)
{
    if (!command->apply())
        return false;
    m_undoStack->push(command.release());
    return true;
}

bool ListDocument::AddTexture(const ListViewModel::Row& row)
{
    return Push(std::make_unique<AddTextureCommand>(m_views, row));
}

bool ListDocument::EditTexture(const QString& key, const QStringList& subItems)
{
    return Push(std::make_unique<EditTextureCommand>(m_views, key, subItems));
}

bool ListDocument::DeleteTexture(const QString& key, DeleteTextureCommand::Outcome* outcome)
{
    return Push(std::make_unique<DeleteTextureCommand>(m_views, key, outcome));
}

bool ListDocument::AddSprite(const ListViewModel::Row& row)
{
    return Push(std::make_unique<AddSpriteCommand>(m_views, row));
}

bool ListDocument::EditSprite(const QString& key, const QStringList& subItems)
{
    return Push(std::make_unique<EditSpriteCommand>(m_views, key, subItems));
}

bool ListDocument::DeleteSprite(const QString& key)
{
    return Push(std::make_unique<DeleteSpriteCommand>(m_views, key));
}

bool ListDocument::AddSequence(const ListViewModel::Row& row)
{
    return Push(std::make_unique<AddSequenceCommand>(m_views, row));
}

bool ListDocument::EditSequence(const QString& key, const QStringList& subItems)
{
    return Push(std::make_unique<EditSequenceCommand>(m_views, key, subItems));
}

bool ListDocument::DeleteSequence(const QString& key)
{
    return Push(std::make_unique<DeleteSequenceCommand>(m_views, key));
}

bool ListDocument::AddAnimation(const QString& number, const QStringList& textures)
{
    return Push(std::make_unique<BuildAnimationCommand>(m_views, BuildAnimationCommand::Build::New, number, textures));
}

bool ListDocument::EditAnimation(const QString& number, const QStringList& textures)
{
    return Push(
        std::make_unique<BuildAnimationCommand>(m_views, BuildAnimationCommand::Build::Replace, number, textures));
}

bool ListDocument::DeleteAnimation(const QString& number)
{
    return Push(std::make_unique<DeleteAnimationCommand>(m_views, number));
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

QString ListDocument::TableName(const ListViewModel& view) const
{
    const std::pair<const ListViewModel*, const char*> names[] = {
        {&m_views.lsvTextures, "Textures"},     {&m_views.lsvAnims, "Animations"},
        {&m_views.lsvAnimDetails, "Animation Textures"}, {&m_views.lsvSprites, "Sprites"},
        {&m_views.lsvSequences, "Sequences"},   {&m_views.lsvSequenceDetails, "Sequence Details"}};
    for (const auto& [model, name] : names) {
        if (model == &view)
            return tr(name);
    }
    return {};
}
