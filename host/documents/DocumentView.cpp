#include "host/documents/DocumentView.h"

#include <QLocale>

#include "host/documents/PdfView.h"
#include "host/documents/PictureView.h"
#include "host/documents/TextView.h"

namespace workbench {

DocumentView* createDocumentView(DocumentKind kind, QWidget* parent) {
    switch (kind) {
        case DocumentKind::Text:
            return new TextView(parent);
        case DocumentKind::Picture:
            return new PictureView(parent);
        case DocumentKind::Pdf:
            return new PdfView(parent);
        case DocumentKind::Outside:
        case DocumentKind::Unknown:
            break;
    }
    return nullptr;
}

QString sizeText(qint64 bytes) {
    return QLocale::c().formattedDataSize(bytes, 1, QLocale::DataSizeTraditionalFormat).replace("bytes", "B");
}

}  // namespace workbench
