// The widgets of a form: from the layout file of its name where there is one, else arranged by
// rule, so that no form is ever invisible.
// Owns: widgetName, spokenName, FormLayout, makeFormLayout.
#pragma once

#include <QString>
#include <QWidget>
#include <memory>
#include <unordered_map>

#include "core/form.h"

namespace tess {

// The object name of a control's widget: NAME, or NAME_INDEX in a control array.
QString widgetName(const Control& control);

// "txtNumPasses" as "Num Passes": better than a control without any name.
QString spokenName(const Control& control);

struct FormLayout {
  QWidget* root = nullptr;  // belongs to the parent
  std::unordered_map<const Control*, QWidget*> widgets;
};

// Every control has a widget in it: those that the layout file lacks stand below the others.
FormLayout makeFormLayout(const Form& form, QWidget* parent);

}  // namespace tess
