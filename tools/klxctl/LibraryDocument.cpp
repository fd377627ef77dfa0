#include "LibraryDocument.h"

#include "ExitStatus.h"

std::string libraryDocument(const DocumentRequest& request,
                            CDeviceInfoManager::DataFormatType format) {
    std::string document;
    if (!CDeviceInfoManager::GetDeviceInfo(request, document, "", format)) {
        throw Failure(ExitStatus::Failed, "the library could not build the document; its lines "
                                          "above tell why (KLX_LOG=info shows more)");
    }
    return document;
}
