#include "system/SystemEndWatch.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QSessionManager>

SystemEndWatch::SystemEndWatch(QObject* parent) : QObject(parent)
{
    QGuiApplication::setFallbackSessionManagementEnabled(false);
    connect(qGuiApp, &QGuiApplication::commitDataRequest, this,
            [this](QSessionManager&) { Q_EMIT SigSystemEndPlanned(); });
    StartSignals();
}

SystemEndWatch::~SystemEndWatch()
{
    StopSignals();
}
