// Replaces a store's file by a fresh one, in a way that leaves a complete
// store under its name at every moment.
#pragma once

#include "convid/record_index.h"

#include <windows.h>

#include <functional>
#include <string>

namespace convid {

// Writes a store of the index's records beside `path`, down to the disk.
// Throws StoreError; nothing is left behind then.
void writeReplacement(const std::wstring& path, const RecordIndex& index);

// Puts what writeReplacement wrote in the place of `path`, which nobody may
// have open. Throws StoreError, and `path` is as it was; or it is missing, and
// the replacement is kept: it is the only good copy then.
void moveReplacementIntoPlace(const std::wstring& path, DWORD patience);

// What is at `path`. An empty file was just being made, and counts as missing.
enum class Presence { missing, there, unknown };
Presence presenceOf(const std::wstring& path) noexcept;

// Removes a replacement that did not come into use, if the store that it was
// meant for is known to be there.
void dropReplacement(const std::wstring& path) noexcept;

// A replacement found where no store is: complete, it becomes the store,
// otherwise it is set aside. Throws StoreError, and it stays what it is.
void recoverReplacement(const std::wstring& path, DWORD patience);

// Keeps a replacement, if there is one, under the next free name.
void setReplacementAside(const std::wstring& path);

// Keeps a copy of a damaged store under the next free name and returns that
// name. Throws StoreError; nothing is left behind then.
std::wstring setAside(const std::wstring& path);

// Runs `replace`, which returns a Windows error code, as long as the file is in
// use or access to it denied, as virus scanners do for a moment, or the connection
// to its server lost; at most `patience` milliseconds. A try whose answer was lost
// may have been carried out: when there is nothing left to replace with, it was.
DWORD replacePatiently(DWORD patience, const std::function<DWORD()>& replace);

}
