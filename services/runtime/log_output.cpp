#include "runtime/log_output.h"

#include <QMessageLogger>
#include <QString>

#include <mutex>
#include <utility>

Q_LOGGING_CATEGORY(lcKelvo, "kelvo", QtInfoMsg)

namespace {

std::mutex &SinkMutex()
{
    static std::mutex mutex;
    return mutex;
}

nbase::LogSink &Sink()
{
    static nbase::LogSink sink;
    return sink;
}

thread_local bool t_inSink = false;

} // namespace

namespace nbase {

LogSink SetLogSink(LogSink sink)
{
    std::lock_guard<std::mutex> lock(SinkMutex());
    std::swap(Sink(), sink);
    return sink;
}

} // namespace nbase

void log_output(wchar_t const *category, int level, char const *file, int line, char const *function,
                std::string const &message)
{
    char const *const fileText = file ? file : "";
    char const *const functionText = function ? function : "";
    QString text = QString::fromStdString(message);
    if (category && *category)
        text = QStringLiteral("[%1] %2").arg(QString::fromWCharArray(category), text);

    QMessageLogger logger(fileText, line, functionText, lcKelvo().categoryName());
    if (level >= nbase::LOG_LEVEL_ERROR) {
        if (lcKelvo().isCriticalEnabled())
            logger.critical("%s", qUtf8Printable(text));
    } else if (level >= nbase::LOG_LEVEL_WARNING) {
        if (lcKelvo().isWarningEnabled())
            logger.warning("%s", qUtf8Printable(text));
    } else if (level >= nbase::LOG_LEVEL_INFO) {
        if (lcKelvo().isInfoEnabled())
            logger.info("%s", qUtf8Printable(text));
    } else if (lcKelvo().isDebugEnabled()) {
        logger.debug("%s", qUtf8Printable(text));
    }

    if (t_inSink)
        return;
    nbase::LogSink sink;
    {
        std::lock_guard<std::mutex> lock(SinkMutex());
        sink = Sink();
    }
    if (!sink)
        return;
    nbase::LogRecord record;
    if (category)
        record.category = category;
    record.level = level;
    record.file = fileText;
    record.line = line;
    record.function = functionText;
    record.message = message;
    t_inSink = true;
    try {
        sink(record);
    } catch (...) {
        // A failing sink must not take the caller down with it.
    }
    t_inSink = false;
}
