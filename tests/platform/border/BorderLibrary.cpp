#include "BorderLibrary.h"

#include "base-ui/TLBaseDialog.h"
#include "base-ui/TLCheckBox.h"
#include "core/TLGlobalData.h"
#include "http/HttpNotifyManager.h"
#include "http/IHttpRequestBase.h"
#include "settings-store/VXSettingManager.h"

#include <stdexcept>

namespace {

int requestCount = 0;

class Request final : public IHttpRequestBase
{
public:
    Request() { ++requestCount; }
    ~Request() override { --requestCount; }
    QString GetApiUrl() const override { return {}; }
    QByteArray GetApiBody() override { return {}; }
    QByteArray GetMethodName() const override { return QByteArrayLiteral("border"); }
};

class Row final : public SettingItemBaseWidget
{
public:
    void SetKeyword(const QString&) override {}
};

} // namespace

std::unique_ptr<QWidget> BorderLibrary::MakeCheckBox()
{
    return std::make_unique<TLCheckBox>();
}

std::unique_ptr<QDialog> BorderLibrary::MakeDialog()
{
    return std::make_unique<TLBaseDialog>();
}

std::unique_ptr<QWidget> BorderLibrary::MakeSettingRow()
{
    return std::make_unique<Row>();
}

std::unique_ptr<QObject> BorderLibrary::MakeRecord()
{
    return std::make_unique<TLPluginBaseEntity>();
}

std::unique_ptr<IHttpRequest> BorderLibrary::MakeRequest()
{
    return std::make_unique<Request>();
}

int BorderLibrary::CountRequests()
{
    return requestCount;
}

QVariant BorderLibrary::MakeReport(int attempts)
{
    HttpCallReport report;
    report.attempts = attempts;
    return QVariant::fromValue(report);
}

int BorderLibrary::GetReportTypeId()
{
    return qMetaTypeId<HttpCallReport>();
}

void BorderLibrary::Throw()
{
    throw std::runtime_error("from the other library");
}

std::vector<const void*> BorderLibrary::GetSingletons()
{
    return {TLGlobalData::Instance(), HttpNotifyManager::Instance(), VXSettingManager::Instance()};
}

std::vector<const QMetaObject*> BorderLibrary::GetMetaObjects()
{
    return {&TLCheckBox::staticMetaObject,
            &TLBaseDialog::staticMetaObject,
            &SettingItemBaseWidget::staticMetaObject,
            &VXJsonParserBase::staticMetaObject,
            &TLPluginBaseEntity::staticMetaObject,
            &VXSettingManager::staticMetaObject};
}
