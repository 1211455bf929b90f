#include "ui/lost_com.h"

#include <QLabel>
#include <QPushButton>

namespace zorvane {

Lost_Com::Lost_Com(QWidget* parent)
    : Fixed_Dialog(QStringLiteral("LostCom"), QStringLiteral("About Communication...."), 6060, 705, parent) {
    setAttribute(Qt::WA_ShowWithoutActivating);
    auto* label = new QLabel(QStringLiteral("Lost communication to device..."), this);
    QFont large(QStringLiteral("MS Sans Serif"), 12, QFont::Bold);
    label->setFont(large);
    put(*label, QStringLiteral("Label1"), {150, 150, 4350, 405});
    QPushButton& ok = addButton(QStringLiteral("OKButton"), QStringLiteral("OK"), {4560, 180, 1400, 345});
    connect(&ok, &QPushButton::clicked, this, &QDialog::close);
}

} // namespace zorvane
