#pragma once

#include "look/Theme.h"

#include "base/IDpiAdapter.h"

#include <QtCore/QObject>

/// Applies the chosen theme to the whole application: one style sheet of `:/themes/`, and the palette
/// that stands in that style sheet's head. Lengths in "dp" are pixels that follow the scale. Made once, after
/// the QApplication. GUI thread.
class ThemeManager final : public QObject, public IDpiAdapter
{
    Q_OBJECT

public:
    explicit ThemeManager(QObject* parent = nullptr);
    ~ThemeManager() override;

    /// What was chosen; `Theme::FollowSystem` until `Apply` is called.
    Theme GetTheme() const noexcept;
    /// Whether what is shown now is dark, also when the system decides.
    bool IsDark() const noexcept;

    /// Takes effect at once and announces `SigThemeApplied`.
    void Apply(Theme theme);

    void AdjustForDpi() override;

Q_SIGNALS:
    void SigThemeApplied(bool dark);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void ApplyFile(bool dark);

    Theme m_theme = Theme::FollowSystem;
    bool m_dark = false;
    bool m_systemDark = false;
    bool m_applying = false;
    bool m_applied = false;
};
