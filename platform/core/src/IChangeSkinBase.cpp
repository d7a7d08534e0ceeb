#include "core/IChangeSkinBase.h"

IChangeSkinBase::~IChangeSkinBase() = default;

void IChangeSkinBase::ChangeSkin() {}
