#pragma once

#include "sdk/packages/IProject.h"

namespace PROJECTPACKAGE {

/// Told by the host when the current project changes. The project is borrowed and valid during the call.
class HOSTSDK_API IKpxProjLoadObserver {
public:
    virtual ~IKpxProjLoadObserver();
    virtual void OnProjectLoaded(IProject* project) = 0;
    virtual void OnProjectSaved(IProject* project) = 0;
    virtual void OnProjectClosed(IProject* project) = 0;
    /// False vetoes the loading.
    virtual bool CanLoadProject(IProject* project) = 0;
    /// False vetoes the closing.
    virtual bool CanCloseProject(IProject* project) = 0;
};

}  // namespace PROJECTPACKAGE
