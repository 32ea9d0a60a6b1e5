#pragma once

#include <QDialog>

class QTextBrowser;

// Help, Help: the README's section for users, rendered from its Markdown in
// a window of its own that stays open beside the editor.
class HelpWindow : public QDialog
{
    Q_OBJECT

public:
    explicit HelpWindow(QWidget* parent = nullptr);

    QTextBrowser* Browser() const { return m_browser; }

    // The heading the user section starts with.
    static QString SectionHeading();
    // From SectionHeading's line to the next heading of its level or a
    // higher one; empty when the heading is missing.
    static QString UserSection(const QString& markdown);

private:
    QTextBrowser* m_browser;
};
