#pragma once

/// Whether the current user holds the right known under `key`, one of `BASETOOLS::CAuthCodeTool`'s; granted where the
/// host keeps no rights.
bool HoldsRight(const wchar_t* key);
