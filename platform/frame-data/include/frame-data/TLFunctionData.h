#pragma once

#include "frame-data/FrameDataExport.h"
#include "frame-data/TLFunctionInfo.h"

#include <QtCore/QHash>
#include <QtCore/QObject>

/// The function switches. The client owns one object, found at `tl://funcdynamic/object`. GUI thread.
class TL_FRAME_DATA_EXPORT TLFunctionData : public QObject
{
    Q_OBJECT

public:
    explicit TLFunctionData(QObject* parent = nullptr);
    ~TLFunctionData() override;

    TLFunctionInfo GetFunctionInfo(int number) const;

    /// Replaces all switches.
    void SetFunctions(const QHash<int, TLFunctionInfo>& functions);

Q_SIGNALS:
    void SigFunctionsChanged();

private:
    QHash<int, TLFunctionInfo> m_functions;
};
