// Replaces a store's file by a fresh one, in a way that leaves a complete
// store under its name at every moment.
#pragma once

#include "convid/record_index.h"

#include <windows.h>

#include <string>

namespace convid {

// Writes a store of the index's records beside `path`, down to the disk.
// Throws StoreError; nothing is left behind then.
void writeReplacement(const std::wstring& path, const RecordIndex& index);

// Puts what writeReplacement wrote in the place of `path`, which nobody may
// have open. Throws StoreError, and `path` is as it was.
void moveReplacementIntoPlace(const std::wstring& path, DWORD patience);

// Removes a replacement that did not come into use.
void dropReplacement(const std::wstring& path) noexcept;

// Keeps a copy of a damaged store under the next free name and returns that
// name. Throws StoreError; nothing is left behind then.
std::wstring setAside(const std::wstring& path);

}
