#pragma once
// log_output: the one log of the library, carried by Qt's logging.
//
// Every line goes to the logging category "kelvo" as info (level below 30000; below
// 20000 as debug), warning (30000 to 39999) or critical (40000 and above), with the
// source file, line and function in the QMessageLogContext, so a client's
// qInstallMessageHandler sees them. A non-empty category is put in front of the
// message as "[category] ". Rules like "kelvo.info=false" mute it as usual.
//
// Besides, a client can install a sink that receives every record, whatever the
// logging rules say. Null category, file or function count as empty. Safe on any thread.

#include "runtime/kelvoruntime_export.h"

#include <QLoggingCategory>

#include <functional>
#include <string>

namespace nbase {

enum LogLevel : int {
    LOG_LEVEL_DEBUG = 10000,
    LOG_LEVEL_INFO = 20000,
    LOG_LEVEL_WARNING = 30000,
    LOG_LEVEL_ERROR = 40000,
};

struct LogRecord
{
    std::wstring category;
    int level = 0;
    std::string file;
    int line = 0;
    std::string function;
    std::string message;
};

using LogSink = std::function<void(LogRecord const &record)>;

// Installs `sink` (an empty function removes it) and returns the one it replaces. A
// line logged from inside the sink reaches Qt's logging but not the sink again.
KELVORUNTIME_EXPORT LogSink SetLogSink(LogSink sink);

} // namespace nbase

// The category "kelvo"; info and above are on by default.
KELVORUNTIME_EXPORT QLoggingCategory const &lcKelvo();

KELVORUNTIME_EXPORT void log_output(wchar_t const *category, int level, char const *file, int line,
                                    char const *function, std::string const &message);
