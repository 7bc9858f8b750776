#include "widgets/rich_text_box.h"

#include <QFile>
#include <QTextBrowser>

#include "context/rtfreader.h"
#include "runtime/vberror.h"

namespace ostravel {

void loadRichText(QTextBrowser* box, const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        raise(err::PathFileAccess);
    box->setHtml(rtfToHtml(file.readAll()));
}

}  // namespace ostravel
