#pragma once

#include "ui/common/IPromptService.h"

// The file dialogs the forms show, each with its title, filter, default
// extension and flags, written once.
namespace FileRequests {

IPromptService::FileRequest OpenLevel();         // "Open TombRaider Level"
IPromptService::FileRequest OpenBitmap();        // "Open Texture Bitmap": BMP or PNG
IPromptService::FileRequest CreateList();        // "Create New TombRaider List File"
IPromptService::FileRequest OpenListForInsert(); // "Open TombRaider Texture List"
IPromptService::FileRequest SaveInsertedLevel(); // "Save the New Level As"
// The main window's list dialog: opening, or saving under a new name.
IPromptService::FileRequest MainListFile(bool open, const QString& initialFolder);

} // namespace FileRequests
