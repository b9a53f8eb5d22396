#pragma once

// Marks what the shared library "hostsdk" offers to the host and to plug-ins.
#if defined(_WIN32)
#if defined(HOSTSDK_BUILD)
#define HOSTSDK_API __declspec(dllexport)
#else
#define HOSTSDK_API __declspec(dllimport)
#endif
#else
#define HOSTSDK_API __attribute__((visibility("default")))
#endif
