#include "PageQuestions.h"

#include "notices/NoticeBar.h"
#include "pages/AddressInput.h"

#include <QtGui/QDesktopServices>

#include <algorithm>
#include <utility>

namespace {

constexpr int LongestAddress = 200; // in a bar [characters]
const QString BlockedNotice = QStringLiteral("blocked");
const QString ExternalNotice = QStringLiteral("external");

bool IsSameOrigin(const QUrl& one, const QUrl& other)
{
    return one.scheme() == other.scheme() && one.authority() == other.authority();
}

} // namespace

PageQuestions::PageQuestions(NoticeBar* notices, QObject* parent) : QObject(parent), m_notices(notices) {}

void PageQuestions::AskPermission(const PermissionRequest& request)
{
    QString text;
    switch (request.kind) {
    case PermissionRequest::Kind::Location:
        text = tr("%1 wants to know where you are.");
        break;
    case PermissionRequest::Kind::Notifications:
        text = tr("%1 wants to show notifications.");
        break;
    case PermissionRequest::Kind::Microphone:
        text = tr("%1 wants to use the microphone.");
        break;
    case PermissionRequest::Kind::Camera:
        text = tr("%1 wants to use the camera.");
        break;
    case PermissionRequest::Kind::CameraAndMicrophone:
        text = tr("%1 wants to use the camera and the microphone.");
        break;
    case PermissionRequest::Kind::ScreenCapture:
        text = tr("%1 wants to record the screen.");
        break;
    case PermissionRequest::Kind::MouseLock:
        text = tr("%1 wants to hide the mouse pointer.");
        break;
    case PermissionRequest::Kind::SeveralDownloads:
        text = tr("%1 wants to save several files.");
        break;
    }
    // A page and a frame of another site in it may ask for the same; each waits for its own answer.
    const QString id =
        QStringLiteral("permission/%1/%2").arg(static_cast<int>(request.kind)).arg(request.origin.toString());
    m_permissions << qMakePair(id, request);
    m_notices->Show(id, NoticeKind::Info, text.arg(AddressInput::ToDisplayHost(request.origin)),
                    {{tr("Allow"), [this, id] { Answer(id, true); }},
                     {tr("Do not allow"), [this, id] { Answer(id, false); }}},
                    [this, id] { Answer(id, false); });
}

void PageQuestions::AskExternal(const QUrl& url)
{
    m_notices->Show(
        ExternalNotice, NoticeKind::Info,
        tr("The page wants to open another program: %1").arg(url.toDisplayString().left(LongestAddress)),
        {{tr("Open"), [url] { QDesktopServices::openUrl(url); }}, {tr("Cancel"), {}}});
}

void PageQuestions::ShowBlocked(const QUrl& url)
{
    m_notices->Show(BlockedNotice, NoticeKind::Warning,
                    tr("The page wanted to go to an address that this client does not open: %1")
                        .arg(url.toDisplayString().left(LongestAddress)));
}

void PageQuestions::HandleUrlChanged(const QUrl& url, const QUrl& before)
{
    m_notices->Hide(BlockedNotice);
    // One click on a link may both ask for another program and change the place in the page.
    if (!url.matches(before, QUrl::RemoveFragment)) {
        m_notices->Hide(ExternalNotice);
    }
    if (!IsSameOrigin(url, before)) {
        WithdrawPermissions();
    }
}

void PageQuestions::HandlePageGone()
{
    WithdrawPermissions();
    m_notices->Hide(ExternalNotice);
}

void PageQuestions::Answer(const QString& id, bool allow)
{
    // A page that asks again before the answer is there gets one for each question.
    const auto asked = m_permissions;
    const auto isOfBar = [&id](const auto& question) { return question.first == id; };
    m_permissions.erase(std::remove_if(m_permissions.begin(), m_permissions.end(), isOfBar),
                        m_permissions.end());
    for (const auto& question : asked) {
        if (isOfBar(question)) {
            question.second.answer(allow);
        }
    }
}

void PageQuestions::WithdrawPermissions()
{
    const auto asked = std::exchange(m_permissions, {});
    for (const auto& question : asked) {
        m_notices->Hide(question.first);
        if (question.second.withdraw) {
            question.second.withdraw();
        }
    }
}
