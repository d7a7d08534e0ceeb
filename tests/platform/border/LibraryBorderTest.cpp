#include "BorderLibrary.h"

#include "base-ui/TLBaseDialog.h"
#include "base-ui/TLCheckBox.h"
#include "core/TLGlobalData.h"
#include "http/HttpNotifyManager.h"
#include "http/IHttpRequestBase.h"
#include "settings-store/VXSettingManager.h"

#include <gtest/gtest.h>

#include <stdexcept>

TEST(LibraryBorderTest, MetaObjectOfAClassIsOneObject)
{
    const std::vector<const QMetaObject*> here{&TLCheckBox::staticMetaObject,
                                               &TLBaseDialog::staticMetaObject,
                                               &SettingItemBaseWidget::staticMetaObject,
                                               &VXJsonParserBase::staticMetaObject,
                                               &TLPluginBaseEntity::staticMetaObject,
                                               &VXSettingManager::staticMetaObject};
    EXPECT_EQ(BorderLibrary::GetMetaObjects(), here);
}

TEST(LibraryBorderTest, WidgetsOfTheOtherLibraryAreWhatTheyAre)
{
    const auto box = BorderLibrary::MakeCheckBox();
    EXPECT_NE(qobject_cast<TLCheckBox*>(box.get()), nullptr);
    EXPECT_NE(dynamic_cast<TLCheckBox*>(box.get()), nullptr);
    EXPECT_EQ(TLCheckBox::staticMetaObject.cast(static_cast<QObject*>(box.get())), box.get());
    EXPECT_EQ(box->metaObject(), &TLCheckBox::staticMetaObject);
    EXPECT_EQ(qobject_cast<TLBaseDialog*>(box.get()), nullptr);
    EXPECT_EQ(dynamic_cast<TLBaseDialog*>(box.get()), nullptr);

    const auto dialog = BorderLibrary::MakeDialog();
    EXPECT_NE(qobject_cast<TLBaseDialog*>(dialog.get()), nullptr);
    EXPECT_NE(dynamic_cast<TLBaseDialog*>(dialog.get()), nullptr);
}

TEST(LibraryBorderTest, DerivedInTheOtherLibraryItIsStillItsPlatformClass)
{
    const auto row = BorderLibrary::MakeSettingRow();
    EXPECT_NE(qobject_cast<SettingItemBaseWidget*>(row.get()), nullptr);
    EXPECT_NE(dynamic_cast<SettingItemBaseWidget*>(row.get()), nullptr);
    QWidget parent;
    row->setParent(&parent);
    EXPECT_EQ(parent.findChildren<SettingItemBaseWidget*>().size(), 1);
    row->setParent(nullptr);
}

TEST(LibraryBorderTest, RecordOfTheOtherLibraryIsARecord)
{
    const auto record = BorderLibrary::MakeRecord();
    EXPECT_NE(qobject_cast<VXJsonParserBase*>(record.get()), nullptr);
    EXPECT_NE(dynamic_cast<TLPluginBaseEntity*>(record.get()), nullptr);
}

TEST(LibraryBorderTest, RequestIsFreedByTheLibraryThatMadeIt)
{
    auto request = BorderLibrary::MakeRequest();
    EXPECT_NE(dynamic_cast<IHttpRequestBase*>(request.get()), nullptr);
    EXPECT_EQ(request->GetMethodName(), QByteArrayLiteral("border"));
    EXPECT_NE(dynamic_cast<IRequestCacheMethod*>(request.get()), nullptr) << "across to the second base";
    EXPECT_EQ(BorderLibrary::CountRequests(), 1);
    request.reset();
    EXPECT_EQ(BorderLibrary::CountRequests(), 0);
}

TEST(LibraryBorderTest, MetaTypeHasOneNumberAndItsValuesCrossTheBorder)
{
    EXPECT_EQ(BorderLibrary::GetReportTypeId(), qMetaTypeId<HttpCallReport>());
    const QVariant report = BorderLibrary::MakeReport(3);
    ASSERT_TRUE(report.canConvert<HttpCallReport>());
    EXPECT_EQ(report.value<HttpCallReport>().attempts, 3);
}

TEST(LibraryBorderTest, ThereIsOneOfEachSingleton)
{
    const std::vector<const void*> here{TLGlobalData::Instance(), HttpNotifyManager::Instance(),
                                        VXSettingManager::Instance()};
    EXPECT_EQ(BorderLibrary::GetSingletons(), here);
}

TEST(LibraryBorderTest, ExceptionCrossesTheBorder)
{
    EXPECT_THROW(BorderLibrary::Throw(), std::runtime_error);
}
