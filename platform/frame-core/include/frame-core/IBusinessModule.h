#pragma once

#include "frame-core/FrameCoreExport.h"

#include <QtCore/QObject>

class ILifeCycle;
class IRouteInterceptor;
class ISysSettingFactory;

/// A business module: the root object of a plug-in that the client loads at run time. The client calls
/// `InitModule` once, then the accessors in any order and as often as it likes, at the end `UninitModule`,
/// and then destroys the object. The module owns what the accessors return; it lives from `InitModule` to
/// `UninitModule`. Null means that the module does not offer it. GUI thread. The order of the operations is
/// part of the contract; a new order is a new major version of the interface id.
class TL_FRAME_CORE_EXPORT IBusinessModule
{
public:
    virtual ~IBusinessModule();

    virtual void InitModule() = 0;
    virtual void UninitModule() = 0;
    virtual ILifeCycle* GetLifeCycle() = 0;
    virtual IRouteInterceptor* GetRouteInterceptor() = 0;
    /// Slots for facilities that this client does not have. It never calls them; they return null by default.
    virtual void* GetReserved5();
    virtual void* GetReserved6();
    virtual void* GetReserved7();
    virtual ISysSettingFactory* GetSysSettingFactory() = 0;
    virtual void* GetReserved9();

protected:
    IBusinessModule() = default;
    Q_DISABLE_COPY(IBusinessModule)
};

#define IBusinessModule_iid "com.kelvorant.localhost.IBusinessModule/8.7.0.0"

Q_DECLARE_INTERFACE(IBusinessModule, IBusinessModule_iid)
