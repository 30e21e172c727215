#pragma once

#include <QIcon>
#include <QPixmap>
#include <QString>

class QApplication;

// The pictures and texts that are built into the program.
namespace widgets {

// Toolbar and button icons, drawn for every scale: "neu", "oeffnen", "speichern", "loeschen",
// "drucken", "nachtstrom", "hochrechnung", "hilfe", "ende", "jahr", and "kalvira" for the program.
// The toolbar's keys ("Öffnen") serve as names as well.
QIcon icon(const QString& name);

// A picture of the help windows ("hilfe-jahr", "hilfe-zaehlerwechsel") for a screen with that
// scale; width in points is the same for every scale.
QPixmap helpPicture(const QString& name, qreal scale);

// German button texts in boxes and file dialogs, the program's name, icon and style. Call once,
// before the first window.
void dressApplication(QApplication& application);

}  // namespace widgets
