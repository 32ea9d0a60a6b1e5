#pragma once

#include <QDialog>

#include <memory>

class QRadioButton;
namespace Ui {
class frmVersion;
}

// Asks for the game version of a list made without a level.
class frmVersion : public QDialog
{
    Q_OBJECT

public:
    explicit frmVersion(QWidget* parent = nullptr);
    ~frmVersion() override;

    // Preselects TR 2 or TR 3 only: iVersion is held to 1..2 and names the
    // option's index.
    void Init(int iVersion);
    // The version long of the chosen game: 32, 45 or 0xFF180038; 0 for none.
    quint32 GetVersion() const;
    bool IsCancelled() const { return m_cancelled; }

    QRadioButton* optVersion(int index) const;

protected:
    void showEvent(QShowEvent* event) override;
    void reject() override;

private:
    void optVersion_Click(int index);

    std::unique_ptr<Ui::frmVersion> m_ui;
    int m_version = 2;
    bool m_cancelled = true;
};
