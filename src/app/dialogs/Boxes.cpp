#include "Boxes.h"

QMessageBox::StandardButton ShowBox(QWidget *parent, QMessageBox::Icon icon, const QString &text,
                                    QMessageBox::StandardButtons buttons, QMessageBox::StandardButton defaultButton)
{
    QMessageBox box(icon, QStringLiteral("Morvanite"), text, buttons, parent);
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(defaultButton);
    return QMessageBox::StandardButton(box.exec());
}
