#pragma once

#include <QDialog>

#include <memory>

class IPromptService;
namespace Ui {
class frmNewList;
}

// Asks for the files of a new list: the list file, an optional level to make
// it from, and the texture bitmap. It only collects the answers; the caller
// reads them after the dialog has hidden itself.
class frmNewList : public QDialog
{
    Q_OBJECT

public:
    explicit frmNewList(IPromptService& prompts, QWidget* parent = nullptr);
    ~frmNewList() override;

    QString GetListFIle() const;
    QString GetBitmapFile() const;
    QString GetLevelFile() const;
    bool IsCancelled() const { return m_cancelled; }
    bool IsDataFromLevel() const { return m_dataFromLevel; }

    // Puts a bitmap path into the bitmap box, as a choice of the user's.
    void SetBitmapFile(const QString& path);
    // Puts a level path into the level box, as if chosen with its button.
    void SetLevelFile(const QString& path);

    Ui::frmNewList& ui() const { return *m_ui; }

protected:
    void showEvent(QShowEvent* event) override;
    void reject() override;

private:
    void cmdList_Click();
    void cmdLevelFile_Click();
    void cmdBitmap_Click();
    // Writes the chosen level's own tiles as the bitmap, where the user says.
    void cmdBitmapFromLevel_Click();
    void cmdOK_Click();
    void cmdCancel_Click();

    std::unique_ptr<Ui::frmNewList> m_ui;
    IPromptService& m_prompts;
    bool m_cancelled = false;
    bool m_dataFromLevel = false;
};
