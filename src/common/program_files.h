// The programs that work together, by their file names. Case makes no difference.
#pragma once

namespace hublink {

inline constexpr const wchar_t* hublinkProgram = L"hublink.exe";
inline constexpr const wchar_t* mapServerProgram = L"PavexConvId.exe";
inline constexpr const wchar_t* softphoneProgram = L"pavex.exe";
inline constexpr const wchar_t* outlookProgram = L"OUTLOOK.EXE";
inline constexpr const wchar_t* notesProgram = L"nlnotes.exe";

}
