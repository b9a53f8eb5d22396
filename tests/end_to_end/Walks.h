#pragma once

#include "tests/end_to_end/Screen.h"
#include "tests/end_to_end/ServiceProbe.h"

/// Creates, renames, moves and deletes a catalog in the main window.
void walkCatalogs(screen::View& view, ServiceProbe& service);
/// Searches, sorts, pages and changes tasks in the main window, and cuts the network under it and joins it again.
void walkTaskList(screen::View& view, ServiceProbe& service);
/// Creates a task with an uploaded document, edits it while the service is away, publishes it after the session has
/// expired, moves and deletes it.
void walkTaskLife(screen::View& view, ServiceProbe& service);
/// Links a task with documents of the store that are checked on two pages, and shows one.
void walkDocuments(screen::View& view, ServiceProbe& service);
/// Shows the store of documents as the workbench's page.
void walkDocumentPage();
/// Tells the network between the workbench and the service, which proxy.py stands in for, by one of its signals.
void makeNetwork(int how);
/// Sets the reminders, so that the service makes messages.
void walkReminders(screen::View& view, ServiceProbe& service);
/// Reads the messages under the workbench's bell and opens the task of the first one.
void walkMessages(ServiceProbe& service);
