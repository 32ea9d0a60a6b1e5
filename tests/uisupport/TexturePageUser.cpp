#include "uisupport/TexturePageUser.h"

#include "level/LevelVersion.h"
#include "synthetic/SyntheticLevel.h"
#include "synthetic/SyntheticTextures.h"
#include "ui/common/EditorState.h"
#include "ui/common/ListView.h"
#include "uisupport/UserActions.h"

#include <QLineEdit>
#include <QPushButton>
#include <QStatusBar>
#include <QTest>

TexturePageUser::TexturePageUser()
{
    f.openList(f.listPath());
    f.window->show();
    QVERIFY(QTest::qWaitForWindowExposed(f.window.get()));
}

TexturePageUser::TexturePageUser(int tiles, int count)
{
    SyntheticLevel level(LevelVersion::Game::TR3);
    level.setTileCount(quint32(tiles));
    level.setObjectTextures(SyntheticTextures::Rows(SyntheticTextures::Convention::LowHigh, count, tiles));
    const QString levelPath = f.dir.filePath(QStringLiteral("tiles.tr2"));
    QVERIFY(level.writeTo(levelPath));
    f.newList(f.dir.filePath(QStringLiteral("tiles.trt")), levelPath,
              f.writeBitmap(QStringLiteral("tiles.bmp"), tiles));
    f.window->show();
    QVERIFY(QTest::qWaitForWindowExposed(f.window.get()));
}

EditorState& TexturePageUser::state() const
{
    return f.window->state();
}

ListRows& TexturePageUser::textures() const
{
    return state().views.lsvTextures;
}

QLineEdit* TexturePageUser::box(const QString& name) const
{
    return f.window->findChild<QLineEdit*>(name);
}

QPushButton* TexturePageUser::button(const char* name) const
{
    return f.find<QPushButton>(name);
}

void TexturePageUser::click(const char* name) const
{
    QTest::mouseClick(button(name), Qt::LeftButton);
}

void TexturePageUser::type(const QString& name, const QString& text) const
{
    UserActions::TypeInto(box(name), text);
}

void TexturePageUser::load(int row) const
{
    UserActions::ClickRow(f.find<ListView>("lsvTextures"), row);
}

void TexturePageUser::addRectangle(int xlo, int ylo, int xhi, int yhi) const
{
    click("cmdAdd");
    type("txtX_0", QString::number(xlo));
    type("txtY_0", QString::number(ylo));
    type("txtX_2", QString::number(xhi));
    type("txtY_2", QString::number(yhi));
}

QStringList TexturePageUser::column(const char* prefix) const
{
    QStringList texts;
    for (int i = 0; i < 4; ++i)
        texts << box(QStringLiteral("%1_%2").arg(QLatin1String(prefix)).arg(i))->text();
    return texts;
}

QStringList TexturePageUser::cells(int row) const
{
    return textures().row(row).subItems;
}

QString TexturePageUser::status() const
{
    return f.window->statusBar()->currentMessage();
}

QStringList TexturePageUser::Row(int tile, int trans, const QList<QPoint>& corners, const QList<QPoint>& bytes)
{
    QStringList cells{QString::number(tile), QString::number(trans)};
    for (const QList<QPoint>& points : {corners, bytes}) {
        for (QPoint p : points)
            cells << QString::number(p.x()) << QString::number(p.y());
    }
    return cells;
}
