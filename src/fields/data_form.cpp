// SPDX-License-Identifier: GPL-3.0-or-later
#include "fields/data_form.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>

#include "fields/machine_records.h"
#include "fields/numbering.h"
#include "shell/caption_table.h"
#include "store/parameter_table.h"

namespace dosmara {

namespace {

constexpr struct {
  int key;
  Qt::Orientation along;
  QAbstractSlider::SliderAction action;
} kScrollKeys[] = {{Qt::Key_Up, Qt::Vertical, QAbstractSlider::SliderSingleStepSub},
                   {Qt::Key_Down, Qt::Vertical, QAbstractSlider::SliderSingleStepAdd},
                   {Qt::Key_PageUp, Qt::Vertical, QAbstractSlider::SliderPageStepSub},
                   {Qt::Key_PageDown, Qt::Vertical, QAbstractSlider::SliderPageStepAdd},
                   {Qt::Key_Left, Qt::Horizontal, QAbstractSlider::SliderSingleStepSub},
                   {Qt::Key_Right, Qt::Horizontal, QAbstractSlider::SliderSingleStepAdd}};

}  // namespace

DataForm::DataForm(const FormSetup& setup)
    : Form(setup.name),
      Loading(setup.opens_after != kNeverLocked),
      setup_(setup),
      body_(new QWidget),
      progress_(new ProgressLine(this)),
      area_(new QScrollArea(this)) {
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins({});
  layout->setSpacing(0);
  layout->addWidget(progress_);
  area_->setFrameShape(QFrame::NoFrame);
  area_->setWidgetResizable(true);
  area_->setFocusPolicy(Qt::NoFocus);
  area_->setWidget(body_);
  layout->addWidget(area_);
  progress_->setAccessibleName(QStringLiteral("Values read"));
}

// The controls go first: a box that loses the focus still puts its text back.
DataForm::~DataForm() { delete body_; }

QSize DataForm::sizeHint() const { return body_->sizeHint() + QSize(0, progress_->sizeHint().height()); }

void DataForm::Load() {
  SubscribeAll();
  InitMessaggi();
  FormCentre(*this);
  parentWidget()->installEventFilter(this);
}

// What a control does not take goes up to the scroll area by itself. While no control has the focus, the
// frame has it; one that is being moved or sized by keys needs them itself, and holds the mouse.
bool DataForm::eventFilter(QObject* frame, QEvent* event) {
  const bool scrolls = event->type() == QEvent::KeyPress && QWidget::mouseGrabber() == nullptr &&
                       ScrollBy(*static_cast<QKeyEvent*>(event));
  return scrolls || Form::eventFilter(frame, event);
}

bool DataForm::ScrollBy(const QKeyEvent& key) {
  if ((key.modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier) {
    return false;
  }
  for (const auto& each : kScrollKeys) {
    if (each.key == key.key()) {
      const bool down = each.along == Qt::Vertical;
      (down ? area_->verticalScrollBar() : area_->horizontalScrollBar())->triggerAction(each.action);
      return true;
    }
  }
  return false;
}

void DataForm::InitMessaggi() {
  setWindowTitle(setup_.title != 0 ? Caption(setup_.title) : QString(setup_.default_title));
  for (const auto& rows : rows_) {
    rows->SetCaptions();
  }
  for (const auto& bits : bits_) {
    bits->SetCaptions();
  }
  for (const auto& choices : choices_) {
    choices->SetCaptions();
  }
  for (const auto& boxes : boxes_) {
    boxes->SetCaptions();
  }
  for (const Captioned& each : captioned_) {
    const QString text = Numbered(Caption(each.line), each.number);
    // Each kind of control has a name of its own for what it says.
    each.control->setProperty(each.control->inherits("QGroupBox") ? "title" : "text", text);
  }
  TakeFocus();
}

// A box that is left because its form closes confirms nothing.
void DataForm::Unload() {
  for (const auto& boxes : boxes_) {
    boxes->EndEntry();
  }
  for (const Heard& heard : heard_) {
    const bool kept = std::ranges::any_of(
        setup_.kept, [&](const Records& records) { return records.Has(heard.node, heard.record); });
    if (!kept) {
      Release(heard);
    }
  }
  for (const Records& records : setup_.also_released) {
    Unsubscribe(records);
  }
  open_ = false;
}

void DataForm::SLabelChange(std::int32_t index, double value) {
  const int slot = arrivals_.Find(NodeIndex, index);
  if (slot == ArrivalMap::kForeign && (!setup_.hears_all || requests_seen_ == ParamRequests)) {
    return;
  }
  requests_seen_ = ParamRequests;
  const QScopedValueRollback guard(InArrival, true);
  if (slot != ArrivalMap::kForeign) {
    TakeArrival(slot, value);
  }
  AfterArrival();
  if (focus_to_give_) {
    TakeFocus();
  }
}

void DataForm::TakeFocus() {
  const QWidget* const focus = QApplication::focusWidget();
  const bool inside = focus != nullptr && body_->isAncestorOf(focus);
  // While all rows are grey the window system finds nothing but the tabs to give the focus to.
  const bool on_tabs = inside && focus->inherits("QTabBar");
  if (inside && !on_tabs) {
    focus_to_give_ = false;
  }
  const auto* frame = qobject_cast<const QMdiSubWindow*>(parentWidget());
  const bool in_front = frame != nullptr && frame->mdiArea() != nullptr &&
                        frame->mdiArea()->currentSubWindow() == frame && isVisible();
  // Nobody has the focus, or a frame around this form has it.
  const bool free = focus == nullptr || focus == this || on_tabs || focus->isAncestorOf(this);
  if (!focus_to_give_ || Loading || !in_front || !free) {
    return;
  }
  for (QWidget* next = body_->nextInFocusChain(); next != body_; next = next->nextInFocusChain()) {
    const bool changes_something = (next->focusPolicy() & Qt::TabFocus) != 0 && !next->inherits("QTabBar") &&
                                   !next->inherits("QTabWidget");
    if (changes_something && body_->isAncestorOf(next) && next->isVisible() && next->isEnabled()) {
      focus_to_give_ = false;
      // Buttons paint the focus only where the window says that it is moved by keys.
      window()->setAttribute(Qt::WA_KeyboardFocusChange);
      next->setFocus(Qt::OtherFocusReason);
      return;
    }
  }
}

void DataForm::TakeArrival(int slot, double value) {
  Heard& heard = heard_[slot - 1];
  const bool first = heard.subscribed && !heard.arrived;
  heard.arrived = true;
  if (heard.counts) {
    CountArrival();
  }
  // The form may forget what it hears while it takes an arrival.
  const std::shared_ptr<const Take> take = heard.take;
  (*take)(heard.n, value);
  if (first) {
    ShowProgress();
  }
  if (Loading && LoadCount > setup_.opens_after && setup_.opens_after != kOpensByItself) {
    Open();
  }
}

void DataForm::CountArrival() {
  if (Loading) {
    ++LoadCount;
  }
}

void DataForm::Open() {
  Loading = false;
  LoadCount = 0;
  Loaded();
}

void DataForm::Hear(const Records& records, Take take, bool subscribed, Counts counts) {
  const auto shared = std::make_shared<const Take>(std::move(take));
  for (int n = 0; n < records.count; ++n) {
    const Heard heard = {.node = records.node,
                         .record = records.first + n,
                         .n = n,
                         .take = shared,
                         .subscribed = subscribed,
                         .counts = counts == Counts::kYes};
    const int slot = arrivals_.Find(heard.node, heard.record);
    if (slot != ArrivalMap::kForeign) {
      HearTwice(heard_[slot - 1], heard);
      continue;
    }
    heard_.push_back(heard);
    arrivals_.Set(heard.node, heard.record, static_cast<int>(heard_.size()));
    if (open_ && subscribed) {
      Subscribe({heard.node, heard.record});
    }
  }
  ShowProgress();
}

// Lets a record that is heard already run what `more` wants as well.
void DataForm::HearTwice(Heard& heard, const Heard& more) {
  const auto both = [first = heard.take, first_n = heard.n, second = more.take, second_n = more.n](
                        int, double value) {
    (*first)(first_n, value);
    (*second)(second_n, value);
  };
  heard.take = std::make_shared<const Take>(both);
  heard.counts = heard.counts || more.counts;
  if (open_ && more.subscribed && !heard.subscribed) {
    Subscribe({heard.node, heard.record});
  }
  heard.subscribed = heard.subscribed || more.subscribed;
}

void DataForm::Watch(const Records& records, std::function<void(int, double)> take, Counts counts) {
  Hear(records, std::move(take), true, counts);
}

void DataForm::Watch(int node, int record, std::function<void(double)> take, Counts counts) {
  Hear(
      {node, record}, [take = std::move(take)](int, double value) { take(value); }, true, counts);
}

void DataForm::Listen(int node, int record, std::function<void(double)> take) {
  Hear(
      {node, record}, [take = std::move(take)](int, double value) { take(value); }, false, Counts::kNo);
}

void DataForm::Watch(FieldRows& rows, Counts counts, std::function<void(int, double)> after) {
  for (int n = 0; n < rows.size(); ++n) {
    Watch(
        rows.Field(n).node, rows.Record(n),
        [&rows, n, after](double value) {
          rows.Show(n, value);
          if (after) {
            after(n, value);
          }
        },
        counts);
  }
}

void DataForm::Watch(BitRows& rows, Counts counts) {
  for (int byte = 0; byte < static_cast<int>(rows.bytes().size()); ++byte) {
    const BitRecord& where = rows.bytes()[byte].where();
    Watch(
        where.node, where.record, [&rows, byte](double value) { rows.Take(byte, value); }, counts);
  }
}

void DataForm::Watch(ChoiceRows& rows, Counts counts) {
  for (int n = 0; n < rows.size(); ++n) {
    Watch(
        rows.Node(n), rows.Record(n), [&rows, n](double value) { rows.Show(n, value); }, counts);
  }
}

void DataForm::Watch(NumberBoxes& boxes, Counts counts) {
  for (int n = 0; n < boxes.size(); ++n) {
    Watch(
        kMainBoard, boxes.Field(n).record, [&boxes, n](double value) { boxes.Show(n, value); }, counts);
  }
}

void DataForm::Watch(Gate& gate, std::function<void()> follow) {
  Watch(
      kMainBoard, gate.record,
      [this, &gate, follow = std::move(follow)](double value) {
        using WhileLoading = Gate::WhileLoading;
        const int seen = LowBits(value) & gate.mask;
        const bool differs = seen != gate.presence;
        const bool followed = gate.while_loading == WhileLoading::kFollowed ||
                              gate.while_loading == WhileLoading::kFollowedAndCounted;
        const bool counts = gate.while_loading == WhileLoading::kStored ||
                            gate.while_loading == WhileLoading::kIgnored ||
                            (differs && gate.while_loading != WhileLoading::kFollowed);
        if (!Loading || gate.while_loading != WhileLoading::kIgnored) {
          gate.presence = seen;
        }
        if (counts) {
          CountArrival();
        }
        if (differs && (!Loading || followed)) {
          follow();
        }
      },
      Counts::kNo);
}

void DataForm::Watch(Money& money, Counts counts) {
  money.TakeKnown();
  Watch(
      kMainBoard, kMoneyDecimals,
      [this, &money](double value) {
        if (money.Take(value)) {
          for (const auto& rows : rows_) {
            rows->RedrawMoney();
          }
        }
      },
      counts);
}

void DataForm::Forget(int node) {
  for (const Heard& heard : heard_) {
    if (heard.node == node) {
      Release(heard);
    }
  }
  std::erase_if(heard_, [node](const Heard& heard) { return heard.node == node; });
  MapArrivals();
}

// A form that has closed lives on until the event loop is back where it was closed: its timers may still
// fire.
void DataForm::Refresh() {
  if (!open_) {
    return;
  }
  for (const Heard& heard : heard_) {
    Release(heard);
  }
  SubscribeAll();
}

void DataForm::SubscribeAll() {
  open_ = true;
  for (Heard& heard : heard_) {
    if (heard.subscribed) {
      heard.arrived = false;
      Subscribe({heard.node, heard.record});
    }
  }
  ShowProgress();
}

void DataForm::Release(const Heard& heard) const {
  if (open_ && heard.subscribed) {
    Unsubscribe({heard.node, heard.record});
  }
}

// Boards that are not there send nothing, and nothing is waited for.
void DataForm::ShowProgress() {
  if (!open_) {
    return;
  }
  int total = 0;
  int arrived = 0;
  for (const Heard& heard : heard_) {
    if (heard.subscribed && NodePresent[heard.node]) {
      ++total;
      arrived += heard.arrived ? 1 : 0;
    }
  }
  progress_->SetShare(arrived, total);
}

void DataForm::MapArrivals() {
  arrivals_.Clear();
  for (std::size_t i = 0; i < heard_.size(); ++i) {
    arrivals_.Set(heard_[i].node, heard_[i].record, static_cast<int>(i) + 1);
  }
}

QGroupBox* DataForm::NewFrame(const QString& name, int line) {
  auto* frame = new QGroupBox(Body());
  frame->setObjectName(name);
  captioned_.push_back({frame, line, 0});
  return frame;
}

FieldLabel* DataForm::NewLabel(const QString& name, int line, int number, QWidget* parent) {
  auto* label = new FieldLabel(parent != nullptr ? parent : Body());
  label->setObjectName(name);
  captioned_.push_back({label, line, number});
  return label;
}

QPushButton* DataForm::NewButton(const QString& name, int line) {
  auto* button = new QPushButton(Body());
  button->setObjectName(name);
  captioned_.push_back({button, line, 0});
  return button;
}

FieldRows& DataForm::NewRows(const RowStyle& style, std::span<const FieldRow> fields, const Money* money) {
  return *rows_.emplace_back(std::make_unique<FieldRows>(Body(), style, fields, InArrival, money));
}

BitRows& DataForm::NewBits(std::span<const BitRecord> bytes, std::span<const BitRow> rows) {
  return *bits_.emplace_back(std::make_unique<BitRows>(bytes, rows, InArrival));
}

ChoiceRows& DataForm::NewChoices(std::span<const ChoiceRow> rows) {
  return *choices_.emplace_back(std::make_unique<ChoiceRows>(Body(), rows, InArrival));
}

NumberBoxes& DataForm::NewNumberBoxes(const ControlArray& captions, const ControlArray& edits,
                                      std::span<const NumberBox> boxes) {
  return *boxes_.emplace_back(std::make_unique<NumberBoxes>(Body(), captions, edits, boxes, InArrival));
}

}  // namespace dosmara
