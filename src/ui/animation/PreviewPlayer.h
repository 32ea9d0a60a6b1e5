#pragma once

#include <QObject>

class EditorState;
class PreviewFrameList;
class QAbstractButton;
class QTimer;
class ucAnimTexture;

// Plays the frames of one page in its preview control: the "Start"/"Stop"
// button, the page's timer and its complete list, which is disabled while
// the preview runs so that no other animation or sequence can be chosen.
// Both pages' players step through the one frame counter and frame count of
// the editor state: two previews running at once share them.
class PreviewPlayer : public QObject
{
    Q_OBJECT

public:
    static constexpr int TickInterval = 400; // milliseconds per frame

    PreviewPlayer(EditorState& state, PreviewFrameList& frames, ucAnimTexture& control, QAbstractButton& button,
                  QWidget& completeList, QTimer& timer, QObject* parent = nullptr);

    // The button: "Start" starts, anything else stops.
    void StartOrStop();
    // Runs when there is at least one frame; the frame count becomes the
    // number of frames.
    void Start();
    void Stop();

    // One tick: shows the frame at the shared counter (1-based, wrapping to 1
    // past the count) and moves the counter on; a frame without geometry
    // stops the preview instead.
    void StepPreview();

private:
    void ShowRunning(bool running);

    EditorState& m_state;
    PreviewFrameList& m_frames;
    ucAnimTexture& m_control;
    QAbstractButton& m_button;
    QWidget& m_completeList;
    QTimer& m_timer;
};
