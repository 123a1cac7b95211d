// The icons of tools, drawn from vector files in the colours of the present theme.
// Owns: iconFile, toolIcon, namedIcon, programIcon.
#pragma once

#include <QIcon>
#include <QString>
#include <string>

namespace tess {

// The resource that holds the icon of a tool; a single-use snap tool shares that of its twin.
QString iconFile(const std::string& tool);

// An empty icon for a tool that has none.
QIcon toolIcon(const std::string& tool);
// One of the icons that belong to no tool.
QIcon namedIcon(const QString& name);
QIcon programIcon();

}  // namespace tess
