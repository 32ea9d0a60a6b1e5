#pragma once

#include <QDialog>

#include <memory>

class IPromptService;
namespace Ui {
class frmAbout;
}

// The program's title, version and purpose, and a way to the system
// information tool where the system has one.
class frmAbout : public QDialog
{
    Q_OBJECT

public:
    explicit frmAbout(IPromptService& prompts, QWidget* parent = nullptr);
    ~frmAbout() override;

    // The system information tool the registry names; "" where there is none.
    static QString SystemInfoPath();
    void StartSysInfo();

    Ui::frmAbout& ui() const { return *m_ui; }

protected:
    void showEvent(QShowEvent* event) override;

private:
    std::unique_ptr<Ui::frmAbout> m_ui;
    IPromptService& m_prompts;
};
