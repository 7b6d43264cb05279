// SPDX-License-Identifier: GPL-3.0-or-later
#include "fields/tab_order.h"

#include <QGroupBox>
#include <QVBoxLayout>

#include "forms/form_fixture.h"

namespace dosmara {
namespace {

using TabOrder = FormFixture;

TEST_F(TabOrder, TabGoesThroughALayoutAsItWasLaidOut) {
  auto* form = new Form("Tabs");
  std::vector<QLineEdit*> edits;
  for (int n = 0; n < 4; ++n) {
    edits.push_back(new QLineEdit(form));
    edits.back()->setObjectName(Element("Edit", n).c_str());
  }
  auto* layout = new QVBoxLayout(form);
  layout->addWidget(edits[3]);
  auto* inner = new QHBoxLayout;
  layout->addLayout(inner);
  inner->addWidget(edits[1]);
  auto* frame = new QGroupBox;
  (new QVBoxLayout(frame))->addWidget(edits[0]);
  inner->addWidget(frame);
  layout->addWidget(edits[2]);
  TabAsLaidOut(*form);
  EXPECT_EQ(form->focusPolicy(), Qt::NoFocus);
  Open(form);
  std::vector<std::string> names;
  for (QWidget* next = form->nextInFocusChain(); names.size() < edits.size();
       next = next->nextInFocusChain()) {
    if (qobject_cast<QLineEdit*>(next) != nullptr) {
      names.push_back(next->objectName().toStdString());
    }
  }
  EXPECT_EQ(names, (std::vector<std::string>{"Edit(3)", "Edit(1)", "Edit(0)", "Edit(2)"}));
}

}  // namespace
}  // namespace dosmara
