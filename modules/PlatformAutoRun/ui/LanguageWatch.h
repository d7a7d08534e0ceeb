#pragma once

#include <QtCore/QObject>

#include <functional>

class QWidget;

/// Calls `retranslate` whenever the language of the user interface changes, for a widget whose overrides the
/// host counts. A child of `widget`. GUI thread.
class LanguageWatch final : public QObject
{
    Q_OBJECT

public:
    LanguageWatch(QWidget* widget, std::function<void()> retranslate);
    ~LanguageWatch() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    Q_DISABLE_COPY(LanguageWatch)

    std::function<void()> m_retranslate;
};
