#include "app/SystemEndWatch.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QSessionManager>

SystemEndWatch::SystemEndWatch(QObject* parent) : QObject(parent)
{
    connect(qGuiApp, &QGuiApplication::commitDataRequest, this,
            [this](QSessionManager&) { Q_EMIT SigSystemEnd(); });
    StartSignals();
}

SystemEndWatch::~SystemEndWatch()
{
    StopSignals();
}
