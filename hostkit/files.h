#pragma once

#include "menu/menu_item.h"

#include <functional>
#include <string>
#include <vector>

namespace hostkit {

/// The files that the kit's file_filter lets through: those with one of these extensions, written without a
/// dot and in any case of ASCII letters. An empty list, as at first, lets every file through. Files whose
/// name begins with "." never pass. Main thread, like everything here.
void setFileExtensions(std::vector<std::string> extensions);

/// What the kit's file_filter answers. A null name never passes.
bool isListedFile(const char* name);

/// What choosing a file does: `choose` gets its path, and its result becomes the list's code (see
/// Action::dowork). Null, as at first, does nothing; rows made before keep what they have.
void setFileChosen(std::function<int(const std::string& path)> choose);

/// The same for the third face button on a file's row.
void setFileMenu(std::function<int(const std::string& path)> open);

/// The row of a folder: choosing it makes the file browser go there. Its icon is "skin/ic-folder.png". ".."
/// stands first, then the folders, then the files. The caller owns the row.
TextMenuItem* makeFolderRow(const char* name, const char* path);

/// The row of a file, with the icon of its kind and its thumbnail. The caller owns it.
TextMenuItem* makeFileRow(const char* name, const char* path);

/// The picture name of the icon for files of that kind, by extension. Lives for ever.
const char* fileIcon(const std::string& name);

/// The path of a file's picture: a picture file itself, for any other NAME.png beside it; "" if there is
/// none.
std::string thumbnailOf(const std::string& path);

} // namespace hostkit
