#include "qtcomm/table_support.h"

#include "runtime/log_output.h"

#include <QFile>

namespace qtcomm_detail {

void LogRefusedTable(char const *file, int line, char const *function, QString const &what)
{
    log_output(nullptr, nbase::LOG_LEVEL_ERROR, file, line, function, what.toStdString());
}

bool ReadBuiltInTable(QString const &path, std::string *text)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        LogRefusedTable(__FILE__, __LINE__, "qtcomm_detail::ReadBuiltInTable",
                        QStringLiteral("built-in table %1 is missing").arg(path));
        return false;
    }
    *text = file.readAll().toStdString();
    return true;
}

std::wstring ToWide(std::string const &utf8)
{
    return QString::fromUtf8(utf8.data(), int(utf8.size())).toStdWString();
}

} // namespace qtcomm_detail
