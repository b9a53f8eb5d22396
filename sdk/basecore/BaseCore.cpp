#include "sdk/basecore/IBaseCoreData.h"
#include "sdk/basecore/MgrObject.h"

namespace BASECORE::FRAME {
namespace {
IBaseCoreData* g_core = nullptr;
}

IBaseCoreData* GetMainBaseCore() {
    return g_core;
}
void SetMainBaseCore(IBaseCoreData* core) {
    g_core = core;
}

IMgrObject::~IMgrObject() = default;

CMgrObject::CMgrObject(std::wstring name) : m_name(std::move(name)) {}
CMgrObject::~CMgrObject() = default;
std::wstring CMgrObject::GetName() const {
    return m_name;
}
void CMgrObject::Init() {}
void CMgrObject::Startup() {}
void CMgrObject::Shutdown() {}
IBaseCoreData* CMgrObject::GetBaseCoreData() {
    return GetMainBaseCore();
}

}  // namespace BASECORE::FRAME
