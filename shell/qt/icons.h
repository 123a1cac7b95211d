// The icons of tools, drawn from vector files in the colours of the present theme.
// Owns: iconFile, toolIcon, namedIcon, programIcon.
#pragma once

#include <QIcon>
#include <QString>

#include "core/tool_host.h"

namespace tess {

// The resource that holds the icon of a tool: named for it, or for the tool whose icon it shows.
QString iconFile(const Tool& tool);

// An empty icon for a tool that has none.
QIcon toolIcon(const Tool& tool);
// One of the icons that belong to no tool.
QIcon namedIcon(const QString& name);
QIcon programIcon();

}  // namespace tess
