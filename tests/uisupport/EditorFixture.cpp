#include "uisupport/EditorFixture.h"

#include "list/ListDocument.h"

#include "demo/DemoLevel.h"
#include "ui/main/frmMain.h"

#include <QAbstractButton>
#include <QAction>
#include <QDialog>
#include <QImage>
#include <QPainter>

EditorFixture::EditorFixture()
{
    DemoLevel::writeInto(dir.path());
    window = std::make_unique<frmMain>(&prompts);
}

EditorFixture::~EditorFixture()
{
    // Closing asks to save only when there are changes; answer Discard.
    prompts.saveAnswers = {IPromptService::SaveAnswer::Discard};
    window.reset();
}

QString EditorFixture::levelPath() const
{
    return DemoLevel::levelPath(dir.path());
}

QString EditorFixture::bitmapPath() const
{
    return DemoLevel::bitmapPath(dir.path());
}

QString EditorFixture::listPath() const
{
    return DemoLevel::listPath(dir.path());
}

void EditorFixture::openList(const QString& path)
{
    prompts.fileNames.append(path);
    window->findChild<QAction*>(QStringLiteral("mnuFileOpen"))->trigger();
}

void EditorFixture::scriptNewList(const QString& list, const QString& level, const QString& bitmap)
{
    prompts.formScripts << [this, list, level, bitmap](QDialog& form) {
        prompts.fileNames << list;
        click(form, "cmdList");
        if (!level.isEmpty()) {
            prompts.fileNames << level;
            click(form, "cmdLevelFile");
        }
        prompts.fileNames << bitmap;
        click(form, "cmdBitmap");
        click(form, "cmdOK");
    };
}

void EditorFixture::newList(const QString& list, const QString& level, const QString& bitmap)
{
    scriptNewList(list, level, bitmap);
    if (level.isEmpty())
        prompts.formScripts << [](QDialog& version) { click(version, "cmdOK"); };
    window->findChild<QAction*>(QStringLiteral("mnuFileNewList"))->trigger();
}

QString EditorFixture::writeBitmap(const QString& name, int tiles, int height) const
{
    QImage image(256, height < 0 ? tiles * 256 : height, QImage::Format_RGB32);
    for (int tile = 0; tile * 256 < image.height(); ++tile) {
        QPainter painter(&image);
        painter.fillRect(0, tile * 256, 256, 256, QColor::fromHsv((tile * 37) % 360, 80, 200));
    }
    const QString path = dir.filePath(name);
    image.save(path, "BMP");
    return path;
}

void EditorFixture::click(QDialog& form, const char* button)
{
    form.findChild<QAbstractButton*>(QString::fromLatin1(button))->click();
}

bool EditorFixture::editTexture(int row)
{
    ListDocument& document = window->document();
    if (!document.tables().textures.contains(row))
        return false;
    const TextureEntry& entry = document.tables().textures.at(row);
    ObjectTexture edited = entry.record;
    edited.setColumn(ObjectTexture::TileColumn, edited.tile() + 1);
    return document.EditTexture(entry.number, edited);
}
