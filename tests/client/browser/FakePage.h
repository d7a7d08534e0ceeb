#pragma once

#include "pages/ITabPage.h"

#include <QtWidgets/QLineEdit>

/// A page that loads nothing: it notes what it is asked for, and says what the test wants it to say.
class FakePage final : public ITabPage
{
    Q_OBJECT

public:
    explicit FakePage(QWidget* parent) : m_widget(std::make_unique<QLineEdit>(parent)) {}

    QWidget* GetWidget() override { return m_widget.get(); }
    void Load(const QUrl& target) override
    {
        loads << target;
        Start();
    }
    void Reload() override { ++reloads; }
    void Stop() override
    {
        ++stops;
        Finish(false);
    }
    void Back() override { ++backs; }
    void Forward() override { ++forwards; }
    bool CanGoBack() const override { return canGoBack; }
    bool CanGoForward() const override { return canGoForward; }
    QUrl GetUrl() const override { return address; }
    QString GetTitle() const override { return {}; }
    bool IsLoading() const override { return m_loading; }
    void Find(const QString& text, bool backward) override
    {
        found = text;
        foundBackward = backward;
    }
    void SetZoom(double factor) override { zoom = factor; }
    double GetZoom() const override { return zoom; }
    void LeaveFullScreen() override { Q_EMIT SigFullScreenRequested(false); }

    void Start()
    {
        m_loading = true;
        Q_EMIT SigLoadStarted();
    }
    void Finish(bool ok)
    {
        if (!m_loading) {
            return;
        }
        m_loading = false;
        Q_EMIT SigLoadFinished(ok);
    }
    void Arrive(const QUrl& target, const QString& title)
    {
        address = target;
        Q_EMIT SigUrlChanged(target);
        Q_EMIT SigTitleChanged(title);
        Finish(true);
    }
    void Fail(PageFailure::Kind kind, const QUrl& url)
    {
        PageFailure failure;
        failure.kind = kind;
        failure.url = url;
        Q_EMIT SigFailed(failure);
        Finish(false);
    }

    QList<QUrl> loads;
    QUrl address;
    QString found;
    bool foundBackward = false;
    bool canGoBack = false;
    bool canGoForward = false;
    double zoom = 1.0;
    int reloads = 0;
    int stops = 0;
    int backs = 0;
    int forwards = 0;

private:
    std::unique_ptr<QLineEdit> m_widget;
    bool m_loading = false;
};
