#pragma once

#include <QtWebEngineWidgets/QWebEngineView>

/// The engine's view with a context menu of those entries that work in this client.
class WebEngineView final : public QWebEngineView
{
    Q_OBJECT

public:
    explicit WebEngineView(QWidget* parent = nullptr);

Q_SIGNALS:
    /// The user typed or clicked into the page.
    void SigInput();

protected:
    void childEvent(QChildEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
};
