#include "frame-data/TLFunctionData.h"

TLFunctionData::TLFunctionData(QObject* parent) : QObject(parent) {}

TLFunctionData::~TLFunctionData() = default;

TLFunctionInfo TLFunctionData::GetFunctionInfo(int number) const
{
    return m_functions.value(number);
}

void TLFunctionData::SetFunctions(const QHash<int, TLFunctionInfo>& functions)
{
    m_functions = functions;
    Q_EMIT SigFunctionsChanged();
}
