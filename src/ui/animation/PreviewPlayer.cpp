#include "ui/animation/PreviewPlayer.h"

#include "ui/common/ButtonCaption.h"
#include "ui/common/EditorState.h"
#include "list/PreviewFrameList.h"
#include "ui/animation/ucAnimTexture.h"

#include <QAbstractButton>
#include <QTimer>

PreviewPlayer::PreviewPlayer(EditorState& state, PreviewFrameList& frames, ucAnimTexture& control,
                             QAbstractButton& button, QWidget& completeList, QTimer& timer, QObject* parent)
    : QObject(parent)
    , m_state(state)
    , m_frames(frames)
    , m_control(control)
    , m_button(button)
    , m_completeList(completeList)
    , m_timer(timer)
{
    connect(&m_timer, &QTimer::timeout, this, &PreviewPlayer::StepPreview);
}

void PreviewPlayer::StartOrStop()
{
    if (ButtonCaption::Is(m_button, u"Start"))
        Start();
    else
        Stop();
}

void PreviewPlayer::Start()
{
    m_state.PreviewFrameCount = m_frames.count();
    if (m_state.PreviewFrameCount < 1)
        return;
    m_timer.setInterval(TickInterval);
    m_timer.start();
    ShowRunning(true);
}

void PreviewPlayer::Stop()
{
    m_timer.setInterval(0);
    m_timer.stop();
    ShowRunning(false);
    m_control.StopAnim();
}

void PreviewPlayer::ShowRunning(bool running)
{
    m_button.setText(running ? QStringLiteral("Stop") : QStringLiteral("Start"));
    m_completeList.setEnabled(!running);
}

void PreviewPlayer::StepPreview()
{
    int& frame = m_state.PreviewFrame;
    if (frame <= 0 || frame > m_state.PreviewFrameCount)
        frame = 1;
    const std::optional<PreviewFrameList::Frame> shown = m_frames.FrameAt(frame - 1);
    if (!shown) {
        Stop();
        return;
    }
    m_control.PutPicture(shown->x, shown->y, shown->width, shown->height);
    ++frame;
}
