// SPDX-License-Identifier: GPL-3.0-or-later
// Which windows the tour visits, and in which order.
#pragma once

#include <QStringList>
#include <span>

#include "shell/form.h"
#include "tour/tour.h"

namespace dosmara {

// Visits the forms of `forms` that are called `names`, all of them where `names` is empty. Forms with steps
// of their own come first, in the order of the itinerary, the others as VisitPlainly does.
void VisitForms(Tour& tour, std::span<const FormEntry> forms, const QStringList& names);

// The visit of a form without steps of its own: it opens, reads all its values, is pictured under its name
// and closes.
void VisitPlainly(Tour& tour, const QString& name);

}  // namespace dosmara
