#include "ui/common/FileRequests.h"

namespace FileRequests {

namespace {

IPromptService::FileRequest Request(bool save, const char* title, const char* filter, const char* defaultExt)
{
    IPromptService::FileRequest request;
    request.save = save;
    request.title = QString::fromLatin1(title);
    request.filter = QString::fromLatin1(filter);
    request.defaultExt = QString::fromLatin1(defaultExt);
    request.flags = save ? IPromptService::OverwritePrompt | IPromptService::PathMustExist
                         : IPromptService::PathMustExist | IPromptService::FileMustExist;
    return request;
}

} // namespace

IPromptService::FileRequest OpenLevel()
{
    return Request(false, "Open TombRaider Level", "TR 2 (*.tr2)|*.tr2", "*.TR2");
}

IPromptService::FileRequest OpenBitmap()
{
    return Request(false, "Open Texture Bitmap",
                   "Bitmap or PNG (*.bmp;*.png)|*.bmp;*.png|Bitmap (*.bmp)|*.bmp|PNG (*.png)|*.png", "*.BMP");
}

IPromptService::FileRequest CreateList()
{
    return Request(true, "Create New TombRaider List File", "TR Texture List (*.trt)|*.trt", "*.TRT");
}

IPromptService::FileRequest OpenListForInsert()
{
    return Request(false, "Open TombRaider Texture List", "TR (*.trt)|*.trt", "*.TRT");
}

IPromptService::FileRequest SaveInsertedLevel()
{
    IPromptService::FileRequest request =
        Request(true, "Save the New Level As", "TR 2 (*.tr2)|*.tr2", "*.TR2");
    // Insert asks before it replaces a file; the dialog need not ask too.
    request.flags &= ~IPromptService::OverwritePrompt;
    return request;
}

IPromptService::FileRequest MainListFile(bool open, const QString& initialFolder)
{
    IPromptService::FileRequest request =
        Request(!open,
                open ? "Open TombRaider List File" : "Save List Information into New TombRaider List File",
                "TR Texture List (*.trt)|*.trt", "*.TRT");
    // The one dialog of the main window takes both flags either way.
    request.flags = IPromptService::OverwritePrompt | IPromptService::PathMustExist;
    request.filterIndex = 1;
    request.initDir = initialFolder;
    return request;
}

} // namespace FileRequests
