#pragma once

#include "list/C_ListInserter.h"

#include <QDialog>

#include <memory>

class IPromptService;
namespace Ui {
class frmInserList;
}

// Builds a new level (txtOutput, "templevel.tr2" beside the level unless the
// user names another) from a level and a texture list: the level's four
// texture tables are replaced by the list's, and when chkInsertTiles is
// ticked its texture tiles by the pixels of the list's bitmap. The level and
// the list are only read; an existing output is replaced only when the user
// agrees.
class frmInserList : public QDialog
{
    Q_OBJECT

public:
    explicit frmInserList(IPromptService& prompts, QWidget* parent = nullptr);
    ~frmInserList() override;

    // Takes the named level, or asks for one when the name is empty.
    void GetLevel(const QString& name = {});
    // Asks for a list, then takes the level the list names.
    void GetList();
    // Takes the named list and the level it names (GetList's choice, or the
    // main window's open list when the dialog starts).
    void TakeList(const QString& path);
    // Asks where the new level goes.
    void GetOutput();
    void EnableInsert();
    void Insert();

    void ShowProgress(bool on);
    void SetProgress(qint64 bytes);

    Ui::frmInserList& ui() const { return *m_ui; }

signals:
    // What an insertion did, for the main window's status bar.
    void StatusMessage(const QString& message);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void Report(const QString& message);
    // The new level's path: the one typed, or the default beside the level.
    QString OutputPath() const;
    // False when the output exists and the user keeps it.
    bool MayReplace(const QString& output);
    // What a finished insertion wrote, with the tiles when they were asked
    // for and what a user should know about the output.
    QString InsertedReport(const C_ListInserter::Result& result) const;

    std::unique_ptr<Ui::frmInserList> m_ui;
    IPromptService& m_prompts;
    QString m_levelPath;
    qint64 m_levelLength = 0;
    bool m_levelChosen = false;
    QString m_listPath;
    // The output offered for the level last taken; a name the user chose
    // instead stays when another level is taken.
    QString m_offeredOutput;
    bool m_listChosen = false;
};
