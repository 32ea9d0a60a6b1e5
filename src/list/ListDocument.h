#pragma once

#include "list/DeleteTextureCommand.h"
#include "list/LevelUsageCache.h"
#include "list/ListViewSet.h"

#include <QObject>
#include <QString>

#include <memory>

class QUndoStack;
class TableEditCommand;

// The open texture list: its records (ListTables), the six content views
// that show them, the files it belongs to, its game version, and the undo stack of
// the edits made to it. Every change to the rows goes through one of the
// edit functions below, each one entry of the undo stack; "modified" is
// "not at the stack's clean state", and a save marks that state.
//
// An edit that cannot be made (no row with the key, a key already taken,
// nothing that would change) changes nothing and pushes nothing.
class ListDocument : public QObject
{
    Q_OBJECT

public:
    explicit ListDocument(QObject* parent = nullptr);
    ~ListDocument() override;

    ListTables& tables() { return m_tables; }
    const ListTables& tables() const { return m_tables; }
    ListViewSet& views() { return m_views; }
    const ListViewSet& views() const { return m_views; }
    QUndoStack* undoStack() const { return m_undoStack.get(); }

    bool isModified() const;
    // The list now matches its file: Save, Save As, a load.
    void markSaved();
    // The history dropped with the list it was made on: before a load.
    void clearHistory();
    // No list: every view emptied, the history and the file names dropped.
    void close();

    const QString& ListFileName() const { return m_listFileName; }
    const QString& LevelFileName() const { return m_levelFileName; }
    const QString& BitmapFileName() const { return m_bitmapFileName; }
    quint32 ListVersion() const { return m_listVersion; }
    bool IsListOpen() const { return m_isListOpen; }
    bool IsBitmapLoaded() const { return m_isBitmapLoaded; }
    bool IsDataFromLevel() const { return m_isDataFromLevel; }
    int NumberOfTiles() const { return m_numberOfTiles; }

    void setListFileName(const QString& name) { m_listFileName = name; }
    void setLevelFileName(const QString& name) { m_levelFileName = name; }
    void setBitmapFileName(const QString& name) { m_bitmapFileName = name; }
    void setListVersion(quint32 version) { m_listVersion = version; }
    void setListOpen(bool open) { m_isListOpen = open; }
    void setBitmapLoaded(bool loaded) { m_isBitmapLoaded = loaded; }
    void setDataFromLevel(bool fromLevel) { m_isDataFromLevel = fromLevel; }
    void setNumberOfTiles(int tiles) { m_numberOfTiles = tiles; }

    // Edits of the object textures, sprite textures and sprite sequences: an
    // entry added at the end (refused when its number is taken), a row's
    // record replaced, a row deleted, each row named by its number.
    bool AddTexture(const TextureEntry& entry);
    // An edited texture keeps its number and text; its corners may be kept
    // at a tile's far edge (TextureEntry::edgeCarry).
    bool EditTexture(qint32 number, const TextureEntry& edited);
    bool EditTexture(qint32 number, const ObjectTexture& record);
    // The texture deleted, the animation ranges following the textures
    // after it; what became of the ranges goes into outcome.
    bool DeleteTexture(qint32 number, DeleteTextureCommand::Outcome* outcome = nullptr);
    bool AddSprite(const SpriteTextureEntry& entry);
    bool EditSprite(qint32 number, const SpriteTexture& record);
    bool DeleteSprite(qint32 number);
    bool AddSequence(const SequenceEntry& entry);
    bool EditSequence(qint32 number, const SpriteSequence& record);
    bool DeleteSequence(qint32 number);
    // An animated texture range built whole from its textures: a new range
    // numbered number, or the textures of range number replaced.
    bool AddAnimation(qint32 number, const QList<quint16>& textures);
    bool EditAnimation(qint32 number, const QList<quint16>& textures);
    bool DeleteAnimation(qint32 number);

    // What the geometry of the list's level uses, read once while the level
    // stays as it was; nothing, with the cause in error, for a list without
    // a level or a level that cannot be read.
    const TextureUsage* LevelUsage(FileError* error = nullptr);

    // The name of a content view in command texts ("Textures"); empty for
    // a model that is not one of them.
    QString TableName(const ListRows& view) const;

signals:
    // The list came to differ from its file, or to match it again.
    void modifiedChanged(bool modified);

private:
    bool Push(std::unique_ptr<TableEditCommand> command);

    ListTables m_tables;
    ListViewSet m_views;
    std::unique_ptr<QUndoStack> m_undoStack;
    LevelUsageCache m_levelUsage;
    QString m_listFileName;
    QString m_levelFileName;
    QString m_bitmapFileName;
    quint32 m_listVersion = 45;
    bool m_isListOpen = false;
    bool m_isBitmapLoaded = false;
    bool m_isDataFromLevel = false;
    int m_numberOfTiles = 0;
};
