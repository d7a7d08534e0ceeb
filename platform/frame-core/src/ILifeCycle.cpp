#include "frame-core/ILifeCycle.h"

ILifeCycle::~ILifeCycle() = default;

void ILifeCycle::LoginSuccess() {}

void ILifeCycle::GetUserInfoSuccess() {}

void ILifeCycle::LogOut() {}

void ILifeCycle::ReLoginSuccess() {}

void ILifeCycle::SwitchUserStateSuccess() {}

void ILifeCycle::StartApp() {}

void ILifeCycle::BeforeLoginConstruct() {}

void ILifeCycle::MainFrameCreate() {}

void ILifeCycle::MainFrameShow() {}

void ILifeCycle::MainFrameQuit() {}

void ILifeCycle::BeforeMainFrameDestruct() {}

void ILifeCycle::ExitApp() {}

BeforeCloseResult ILifeCycle::BeforeClose()
{
    return BeforeCloseResult::Close;
}
