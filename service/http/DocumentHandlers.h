#pragma once

#include "service/http/Route.h"

namespace disclosure {

/// The operations on documents and their folders, from checked request to answer.
Response documentFolders(Call& call);
Response documentUpdaters(Call& call);
Response documentTags(Call& call);
Response listDocumentTypes(Call& call);
Response pageDocuments(Call& call);
Response findDocuments(Call& call);
Response documentContents(Call& call);
Response saveFolder(Call& call);
Response updateFolder(Call& call);
Response deleteFolder(Call& call);
Response saveDocument(Call& call);
Response updateDocuments(Call& call);
Response deleteDocuments(Call& call);
Response restoreDocuments(Call& call);

}  // namespace disclosure
