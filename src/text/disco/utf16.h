// SPDX-License-Identifier: MIT
// text/disco/utf16.h
//
// For the Windows backends alone: the system's header, and conversion between UTF-8 and the UTF-16
// that its calls want.
#pragma once

#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>

#include <string>
#include <string_view>

namespace morvella {

/// UTF-8 to UTF-16. What is not UTF-8 becomes the replacement character, or, with
/// MB_ERR_INVALID_CHARS as `modo`, makes the whole result empty.
inline std::wstring Utf16DaUtf8(std::string_view utf8, DWORD modo = 0) {
    const int n = static_cast<int>(utf8.size());
    std::wstring largo(
        static_cast<std::size_t>(::MultiByteToWideChar(CP_UTF8, modo, utf8.data(), n, nullptr, 0)), L'\0');
    ::MultiByteToWideChar(CP_UTF8, modo, utf8.data(), n, largo.data(), static_cast<int>(largo.size()));
    return largo;
}

/// UTF-16 to UTF-8, or to the code page named; a character that a code page lacks
/// becomes the nearest one that Windows knows, or "?".
inline std::string BytesDaUtf16(std::wstring_view largo, UINT pagina = CP_UTF8) {
    const int n = static_cast<int>(largo.size());
    std::string bytes(static_cast<std::size_t>(
                          ::WideCharToMultiByte(pagina, 0, largo.data(), n, nullptr, 0, nullptr, nullptr)),
                      '\0');
    ::WideCharToMultiByte(pagina, 0, largo.data(), n, bytes.data(), static_cast<int>(bytes.size()), nullptr,
                          nullptr);
    return bytes;
}

/// A path of the system as a platform path: UTF-8 with "/".
inline std::string PercorsoDaUtf16(std::wstring_view largo) {
    std::string percorso = BytesDaUtf16(largo);
    for (char& c : percorso)
        if (c == '\\') c = '/';
    return percorso;
}

} // namespace morvella
