#pragma once

#include "EditorPage.h"
#include "ListViewModel.h"

#include <memory>

class ucAnimTexture;
namespace Ui {
class AnimationPage;
}

// The "...and Animations" page: the animated texture ranges, the textures of
// every range, the range being built and its preview.
class AnimationPage : public EditorPage
{
    Q_OBJECT

public:
    explicit AnimationPage(EditorState& state, QWidget* parent = nullptr);
    ~AnimationPage() override;

    void ResetPage() override;
    void ClearPage() override;
    void ListLoaded() override;
    void BitmapLoaded(const QString& fileName) override;
    void BitmapRemoved() override;

    void EnableOrderButtons(bool enabled);
    void SetAnimTotal(const QString& text);
    void ClearOneAnim();

    ucAnimTexture* Preview() const;
    ListViewModel& lsvOneAnim() { return m_lsvOneAnim; }
    ListViewModel& lsvNextAnim() { return m_lsvNextAnim; }
    Ui::AnimationPage& ui() const { return *m_ui; }

private:
    std::unique_ptr<Ui::AnimationPage> m_ui;
    ListViewModel m_lsvOneAnim;
    ListViewModel m_lsvNextAnim;
    ListViewModel m_lsvAnimsDel;
    ListViewModel m_lsvAnimDetailsDel;
};
