#include "ui/about/HelpWindow.h"

#include <QFile>
#include <QTextBrowser>
#include <QVBoxLayout>

// The resource is compiled into the editor library, which the linker would
// otherwise leave out of the program. Outside any namespace, as Qt requires.
static void LoadHelpResource()
{
    Q_INIT_RESOURCE(help);
}

namespace {

// "## Title" is level 2; a line that is no heading is level 0.
int HeadingLevel(QStringView line)
{
    int level = 0;
    while (level < line.size() && line[level] == QLatin1Char('#'))
        ++level;
    return level > 0 && level < line.size() && line[level] == QLatin1Char(' ') ? level : 0;
}

} // namespace

HelpWindow::HelpWindow(QWidget* parent)
    : QDialog(parent)
    , m_browser(new QTextBrowser(this))
{
    LoadHelpResource();
    setObjectName(QStringLiteral("frmHelp"));
    setWindowTitle(tr("Brindle Help"));
    setModal(false);
    resize(640, 560);
    m_browser->setObjectName(QStringLiteral("txtHelp"));
    m_browser->setOpenExternalLinks(true);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_browser);

    QFile readme(QStringLiteral(":/help/README.md"));
    const QString text = readme.open(QIODevice::ReadOnly) ? QString::fromUtf8(readme.readAll()) : QString();
    const QString section = UserSection(text);
    m_browser->setMarkdown(section.isEmpty() ? tr("The help text is missing from this build.") : section);
}

QString HelpWindow::SectionHeading()
{
    return QStringLiteral("## Using the editor");
}

QString HelpWindow::UserSection(const QString& markdown)
{
    const QStringList lines = markdown.split(QLatin1Char('\n'));
    const QString heading = SectionHeading();
    const int level = HeadingLevel(heading);
    QStringList section;
    bool inside = false;
    bool fenced = false;
    for (const QString& line : lines) {
        const QString bare = line.trimmed();
        if (inside && bare.startsWith(QLatin1String("```")))
            fenced = !fenced;
        const int lineLevel = fenced ? 0 : HeadingLevel(bare);
        if (!inside) {
            inside = bare == heading;
        } else if (lineLevel > 0 && lineLevel <= level) {
            break;
        }
        if (inside)
            section << line;
    }
    return section.join(QLatin1Char('\n')).trimmed();
}
