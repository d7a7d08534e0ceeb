#pragma once

#include <QtWebEngineWidgets/QWebEngineView>

/// The engine's view with a context menu of those entries that work in this client.
class WebEngineView final : public QWebEngineView
{
    Q_OBJECT

public:
    explicit WebEngineView(QWidget* parent = nullptr);

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;
};
