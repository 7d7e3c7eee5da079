// Replaces a store's file by a fresh one, in a way that leaves a complete
// store under its name at every moment.
#pragma once

#include "automation/milliseconds.h"
#include "convid/record_index.h"

#include <windows.h>

#include <string>

namespace convid {

// Writes a store of the index's records beside `path`, down to the disk.
// Throws StoreError; nothing is left behind then.
void writeReplacement(const std::wstring& path, const RecordIndex& index);

// Puts what writeReplacement wrote in the place of `path`, which nobody may
// have open. Throws StoreError, and `path` is as it was; or it is missing, and
// the replacement is kept: it is the only good copy then.
void moveReplacementIntoPlace(const std::wstring& path, automation::Milliseconds timeout);

// What is at `path`. An empty file was just being made, and counts as missing.
enum class Presence { missing, there, unknown };
Presence presenceOf(const std::wstring& path) noexcept;

// Removes a replacement that did not come into use, if the store that it was
// meant for is known to be there.
void dropReplacement(const std::wstring& path) noexcept;

// A replacement found where no store is: complete, it becomes the store,
// otherwise it is set aside. Throws StoreError, and it stays what it is.
void recoverReplacement(const std::wstring& path, automation::Milliseconds timeout);

// Keeps a replacement, if there is one, under the next free name.
void setReplacementAside(const std::wstring& path);

// Keeps a copy of a damaged store under the next free name and returns that
// name. Throws StoreError; nothing is left behind then.
std::wstring setAside(const std::wstring& path);

}
