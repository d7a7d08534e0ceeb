#pragma once

#include "look/Theme.h"

#include "base/IDpiAdapter.h"

#include <QtCore/QObject>

/// Applies the chosen theme to the whole application: a style sheet from `:/themes/` and the palette in that
/// style sheet's head. Lengths in "dp" are pixels that follow the scale. Make one, after the QApplication.
/// GUI thread.
class ThemeManager final : public QObject, public IDpiAdapter
{
    Q_OBJECT

public:
    explicit ThemeManager(QObject* parent = nullptr);
    ~ThemeManager() override;

    /// The theme last applied; `Theme::FollowSystem` before the first `Apply`.
    Theme GetTheme() const noexcept;
    /// Whether the client is dark now, whether by choice or because the system is.
    bool IsDark() const noexcept;

    /// Takes effect immediately and emits `SigThemeApplied`.
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
