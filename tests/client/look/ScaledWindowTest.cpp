#include "ScaledWindowTest.h"

#include "base/DpiTool.h"

#include <QtGui/QFontInfo>

ScaledWindowTest::~ScaledWindowTest()
{
    qApp->setStyleSheet(QString());
    SetScale(1);
}

void ScaledWindowTest::SetScale(double scale)
{
    QFont font = m_font;
    if (scale > 1) {
        font.setPixelSize(qRound(QFontInfo(m_font).pixelSize() * scale));
    }
    QApplication::setFont(font);
    DpiTool::SetScale(scale);
    QCoreApplication::sendPostedEvents();
}

std::unique_ptr<HomePage> ScaledWindowTest::MakeHome()
{
    return std::make_unique<HomePage>(
        QStringLiteral("Anna"), &m_apps,
        [](const QString&, QObject*, const std::function<void(const QPixmap&)>& done) {
            QPixmap picture(128, 128);
            picture.fill(Qt::red);
            done(picture);
        });
}

EarlierTabSet ScaledWindowTest::MakeEarlierSet()
{
    TabRecord tab;
    tab.routerUrl = QStringLiteral("tl://browser/open?url=https%3A%2F%2Fa.example%2F");
    tab.title = QStringLiteral("A");
    tab.address = QUrl(QStringLiteral("https://a.example/"));
    tab.iconUrl = QStringLiteral("https://a.example/icon.png");
    EarlierTabSet set;
    set.when = QDateTime::currentDateTime();
    set.reason = EarlierTabSet::Reason::Declined;
    set.tabs = {tab, tab};
    return set;
}
