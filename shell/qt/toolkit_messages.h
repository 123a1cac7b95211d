// What the toolkit says on standard error, where that belongs to a job.
// Owns: passOverWarnings.
#pragma once

#include <QMessageLogContext>
#include <QString>
#include <QtGlobal>

namespace tess {

// A message handler that lets through only what ends the program.
void passOverWarnings(QtMsgType type, const QMessageLogContext& where, const QString& text);

}  // namespace tess
