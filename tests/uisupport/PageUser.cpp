#include "PageUser.h"

#include "EditorFixture.h"
#include "ListView.h"
#include "UserActions.h"

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

PageUser::PageUser(EditorFixture& fixture)
    : m_fixture(fixture)
{
}

namespace {

template <typename T> T& found(const EditorFixture& fixture, const char* name)
{
    T* control = fixture.find<T>(name);
    if (!control)
        qFatal("No control named %s", name);
    return *control;
}

} // namespace

QAbstractButton& PageUser::button(const char* name) const
{
    return found<QAbstractButton>(m_fixture, name);
}

ListView& PageUser::list(const char* name) const
{
    return found<ListView>(m_fixture, name);
}

QLineEdit& PageUser::box(const char* name) const
{
    return found<QLineEdit>(m_fixture, name);
}

QLabel& PageUser::label(const char* name) const
{
    return found<QLabel>(m_fixture, name);
}

void PageUser::press(const char* name) const
{
    UserActions::press(button(name));
}

void PageUser::choose(const char* name, const QString& text) const
{
    if (!UserActions::chooseRowWithText(list(name), text))
        QTest::qFail(qPrintable(QStringLiteral("%1 has no row %2").arg(QLatin1String(name), text)), __FILE__,
                     __LINE__);
}

void PageUser::sendTextures(const QStringList& textures) const
{
    for (const QString& texture : textures) {
        choose("lsvAvailTextures", texture);
        press("cmdAddText");
    }
}

void PageUser::addAnimation(const QStringList& textures) const
{
    press("cmdAddAnim");
    sendTextures(textures);
    press("cmdAddAnim");
}

void PageUser::typeSequence(const QString& start, const QString& stop, const QString& object) const
{
    UserActions::typeInto(box("txtSeqStart"), start);
    UserActions::typeInto(box("txtSeqStop"), stop);
    UserActions::typeInto(box("txtSeqObject"), object);
}

void PageUser::addSequence(const QString& start, const QString& stop, const QString& object) const
{
    press("cmdSeqAdd");
    typeSequence(start, stop, object);
    press("cmdSeqAdd");
}
