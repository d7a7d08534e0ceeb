#include "WebEngineView.h"

#include "RequestGate.h"

#include <QtCore/QChildEvent>
#include <QtGui/QContextMenuEvent>
#include <QtWebEngineWidgets/QWebEngineContextMenuData>
#include <QtWebEngineWidgets/QWebEngineHistory>
#include <QtWidgets/QMenu>

WebEngineView::WebEngineView(QWidget* parent) : QWebEngineView(parent) {}

void WebEngineView::childEvent(QChildEvent* event)
{
    // The engine's own widget takes the input; each renderer brings another.
    if (event->added() && event->child()->isWidgetType()) {
        event->child()->installEventFilter(this);
    }
    QWebEngineView::childEvent(event);
}

bool WebEngineView::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::MouseButtonPress:
    case QEvent::TouchBegin:
        Q_EMIT SigInput();
        break;
    default:
        break;
    }
    return QWebEngineView::eventFilter(watched, event);
}

void WebEngineView::contextMenuEvent(QContextMenuEvent* event)
{
    const QWebEngineContextMenuData target = page()->contextMenuData();
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto add = [this, menu](const QString& text, QWebEnginePage::WebAction action,
                                  bool enabled = true) {
        QAction* entry = menu->addAction(text);
        entry->setEnabled(enabled);
        connect(entry, &QAction::triggered, this, [this, action] { page()->triggerAction(action); });
    };

    const bool image = target.mediaType() == QWebEngineContextMenuData::MediaTypeImage;
    if (RequestGate::IsWeb(target.linkUrl())) {
        add(tr("Open link in new tab"), QWebEnginePage::OpenLinkInNewTab);
        add(tr("Copy link address"), QWebEnginePage::CopyLinkToClipboard);
        menu->addSeparator();
    }
    if (image) {
        add(tr("Save image…"), QWebEnginePage::DownloadImageToDisk);
        add(tr("Copy image"), QWebEnginePage::CopyImageToClipboard);
        menu->addSeparator();
    }
    if (target.isContentEditable()) {
        const auto flags = target.editFlags();
        add(tr("Undo"), QWebEnginePage::Undo, flags.testFlag(QWebEngineContextMenuData::CanUndo));
        menu->addSeparator();
        add(tr("Cut"), QWebEnginePage::Cut, flags.testFlag(QWebEngineContextMenuData::CanCut));
        add(tr("Copy"), QWebEnginePage::Copy, flags.testFlag(QWebEngineContextMenuData::CanCopy));
        add(tr("Paste"), QWebEnginePage::Paste, flags.testFlag(QWebEngineContextMenuData::CanPaste));
        add(tr("Select all"), QWebEnginePage::SelectAll,
            flags.testFlag(QWebEngineContextMenuData::CanSelectAll));
    } else if (!target.selectedText().isEmpty()) {
        add(tr("Copy"), QWebEnginePage::Copy);
    } else if (menu->isEmpty()) {
        add(tr("Back"), QWebEnginePage::Back, page()->history()->canGoBack());
        add(tr("Forward"), QWebEnginePage::Forward, page()->history()->canGoForward());
        add(tr("Reload"), QWebEnginePage::Reload);
        menu->addSeparator();
        add(tr("Select all"), QWebEnginePage::SelectAll);
    }
    menu->popup(event->globalPos());
}
