#include "clientpages/AboutPage.h"

#include "settings/SettingsServices.h"

#include "base/DpiTool.h"

#include <QtCore/QFile>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPlainTextEdit>

namespace {

QString ReadLicences()
{
    QFile file(QStringLiteral(":/licences/licences.txt"));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

} // namespace

AboutPage::AboutPage(const SettingsServices* services) : m_licences(new QPlainTextEdit(this))
{
    AddCard();
    for (const AboutEntry& entry : services->versions) {
        auto* version = new QLabel(this);
        version->setObjectName(QStringLiteral("about_version"));
        version->setTextFormat(Qt::PlainText);
        version->setText(entry.version.isEmpty() ? QStringLiteral("–") : entry.version);
        version->setTextInteractionFlags(Qt::TextSelectableByMouse);
        AddRow([name = entry.name] { return name; }, {}, version);
    }
    AddCard();
    AddRow([] { return tr("Licences"); },
           [] { return tr("For the software that the client is built with."); }, nullptr);
    m_licences->setObjectName(QStringLiteral("licences_text"));
    m_licences->setReadOnly(true);
    m_licences->setPlainText(ReadLicences());
    m_licences->setTabChangesFocus(true);
    m_licences->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    AddTexts([this] { m_licences->setAccessibleName(tr("Licences")); });
    AddWide(m_licences);
    AboutPage::AdjustForDpi();
}

AboutPage::~AboutPage() = default;

QStringList AboutPage::GetKeywords()
{
    return {tr("About"), tr("Version"), tr("Licences"), QStringLiteral("Qt"), QStringLiteral("LGPL")};
}

void AboutPage::AdjustForDpi()
{
    ClientPage::AdjustForDpi();
    m_licences->setMinimumHeight(DpiTool::ScaleDefault(320));
}
