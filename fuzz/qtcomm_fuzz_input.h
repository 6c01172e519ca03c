#pragma once
// Shared by the qtcomm fuzz targets: the input as text, with Qt's log silenced so that
// the one warning per refused table doesn't drown the fuzzer's output.

#include <QtGlobal>

#include <cstddef>
#include <cstdint>
#include <string>

inline std::string QtCommFuzzInput(uint8_t const *data, size_t size)
{
    static bool const quiet = (qInstallMessageHandler([](QtMsgType, QMessageLogContext const &, QString const &) {}), true);
    static_cast<void>(quiet);
    return data ? std::string(reinterpret_cast<char const *>(data), size) : std::string();
}
