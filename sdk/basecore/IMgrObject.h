#pragma once

#include <string>

#include "sdk/Export.h"

namespace BASECORE::FRAME {

/// A manager: an object that the host keeps under a name and starts and ends with the program.
class HOSTSDK_API IMgrObject {
public:
    virtual ~IMgrObject();
    virtual std::wstring GetName() const = 0;
    virtual void Init() = 0;
    virtual void Startup() = 0;
    virtual void Shutdown() = 0;
};

}  // namespace BASECORE::FRAME
