#pragma once

#include "frame-core/SettingItemBaseWidget.h"
#include "frame-data/TLPluginBaseEntity.h"
#include "http/HttpCallReport.h"
#include "http/IHttpRequest.h"

#include <QtCore/QVariant>
#include <QtWidgets/QDialog>

#include <memory>
#include <vector>

#ifdef TLBorderLibrary_EXPORTS
#define TL_BORDER_EXPORT Q_DECL_EXPORT
#else
#define TL_BORDER_EXPORT Q_DECL_IMPORT
#endif

/// A second library beside the test program, which uses the platform as a module does.
namespace BorderLibrary {

TL_BORDER_EXPORT std::unique_ptr<QWidget> MakeCheckBox();
TL_BORDER_EXPORT std::unique_ptr<QDialog> MakeDialog();
TL_BORDER_EXPORT std::unique_ptr<QWidget> MakeSettingRow();
TL_BORDER_EXPORT std::unique_ptr<QObject> MakeRecord();
TL_BORDER_EXPORT std::unique_ptr<IHttpRequest> MakeRequest();
/// How many of the objects behind `MakeRequest` there are.
TL_BORDER_EXPORT int CountRequests();
TL_BORDER_EXPORT QVariant MakeReport(int attempts);
TL_BORDER_EXPORT int GetReportTypeId();
/// Throws std::runtime_error.
TL_BORDER_EXPORT void Throw();
/// The addresses that this library gets for what there is once in a process.
TL_BORDER_EXPORT std::vector<const void*> GetSingletons();
TL_BORDER_EXPORT std::vector<const QMetaObject*> GetMetaObjects();

} // namespace BorderLibrary
