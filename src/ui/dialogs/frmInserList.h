#pragma once

#include "list/C_ListInserter.h"

#include <QDialog>

#include <memory>

class IPromptService;
namespace Ui {
class frmInserList;
}

// Builds "templevel.tr2" beside a level from the level and a texture list:
// the level's four texture tables are replaced by the list's, and when
// chkInsertTiles is ticked its texture tiles by the pixels of the list's
// bitmap. The level and the list are only read.
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
    // What a finished insertion wrote, with the tiles when they were asked
    // for and what a user should know about the output.
    QString InsertedReport(const C_ListInserter::Result& result) const;

    std::unique_ptr<Ui::frmInserList> m_ui;
    IPromptService& m_prompts;
    QString m_levelPath;
    qint64 m_levelLength = 0;
    bool m_levelChosen = false;
    QString m_listPath;
    bool m_listChosen = false;
};
