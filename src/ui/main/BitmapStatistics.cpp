#include "ui/main/BitmapStatistics.h"

#include "list/ListDocument.h"
#include "ui/bitmap/ucScrollPic.h"
#include "ui/common/EditorState.h"
#include "ui_frmMain.h"

#include <cmath>

BitmapStatistics::BitmapStatistics(Ui::frmMain& ui, ListDocument& document, EditorState& state, QObject* parent)
    : QObject(parent)
    , m_ui(ui)
    , m_document(document)
    , m_state(state)
{
    connect(m_ui.hscrlZoom, &QScrollBar::valueChanged, this, &BitmapStatistics::ZoomChanged);
    connect(m_ui.ucScrollPic1, &ucScrollPic::Change, this, &BitmapStatistics::Scrolled);
    connect(m_ui.ucScrollPic1, &ucScrollPic::MousePos, this, &BitmapStatistics::MouseAt);
}

void BitmapStatistics::ShowNone()
{
    for (QLabel* label : {m_ui.lblHeight, m_ui.lblWidth, m_ui.lblNbTiles})
        label->setText(QStringLiteral("0"));
    ShowNoMouse();
    m_document.setNumberOfTiles(0);
}

void BitmapStatistics::ShowLoaded(const ucScrollPic& view)
{
    m_ui.lblHeight->setText(QString::number(view.PictureHeight()));
    m_ui.lblWidth->setText(QString::number(view.PictureWidth()));
    m_document.setNumberOfTiles(TilesOf(view.PictureHeight()));
    m_ui.lblNbTiles->setText(QString::number(m_document.NumberOfTiles()));
    ShowNoMouse();
}

int BitmapStatistics::TilesOf(int pictureHeight)
{
    return int(std::nearbyint(pictureHeight / 256.0));
}

void BitmapStatistics::ShowNoMouse()
{
    for (QLabel* label : {m_ui.lblTileShow, m_ui.lblMousePosX, m_ui.lblMousePosY})
        label->setText(QStringLiteral("0"));
}

void BitmapStatistics::ZoomChanged(int value)
{
    m_ui.lblZoomFactor->setText(QStringLiteral("Zoom Factor: ") + QString::number(value));
    m_ui.ucScrollPic1->setZoomFactor(value);
    m_state.RedrawOutlines();
}

void BitmapStatistics::Scrolled(int, int y)
{
    m_ui.lblTileShow->setText(QString::number(y / 256));
}

void BitmapStatistics::MouseAt(float x, float y)
{
    m_ui.lblMousePosX->setText(QString::number(int(std::floor(x))));
    m_ui.lblMousePosY->setText(QString::number(int(std::floor(y))));
}
