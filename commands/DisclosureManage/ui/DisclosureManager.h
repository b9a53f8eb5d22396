#pragma once

namespace DISCLOSUREPACKAGE {
class IDisclosureManageMgr;
}

/// The manager that talks to the service; null where the host does not have it.
DISCLOSUREPACKAGE::IDisclosureManageMgr* FindDisclosureManager();
