// SPDX-License-Identifier: GPL-3.0-or-later
// Records that several windows read or write: any two of these windows, open together.
#include <QCoreApplication>
#include <algorithm>
#include <iterator>
#include <map>
#include <set>
#include <utility>

#include "forms/form_fixture.h"
#include "forms/form_list.h"
#include "link/link_engine.h"
#include "store/parameter_table.h"
#include "support/virtual_host.h"
#include "tour/left_subscribed.h"

namespace dosmara {
namespace {

using Record = std::pair<int, int>;  // node and number
using Counts = std::map<Record, int>;

// What several windows read, on whichever boards they do.
const std::set<int> kShared = {52,  287, 290, 312, 313, 317, 357, 541, 542,
                               543, 544, 545, 546, 547, 548, 549, 550};

class SharedRecords : public FormFixture, public testing::WithParamInterface<FormEntry> {
 protected:
  SharedRecords() { LinkAttach(host_); }

  // No record has a subscriber, and the shared ones are polled for ever.
  static void StartAnew() {
    for (auto& node : ParamTable) {
      for (int record = 1; record <= kRecords; ++record) {
        node[record].Subscribers = node[record].Flags = 0;
        node[record].Period = kShared.contains(record) ? 1 : 0;
      }
    }
  }

  Counts Subscribers() const {
    Counts counts;
    for (const Subscription& each : Subscribed()) {
      counts[{each.node, each.record}] = each.subscribers;
    }
    return counts;
  }

  static void CloseForm(const Form& form) {
    form.parentWidget()->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  // The shared records that a window reads.
  std::set<Record> SharedOf(const std::string& name) {
    StartAnew();
    const Form& form = Open(name);
    std::set<Record> shared;
    for (const auto& [record, subscribers] : Subscribers()) {
      if (kShared.contains(record.second)) {
        shared.insert(record);
      }
    }
    CloseForm(form);
    return shared;
  }

  // Adds what a window leaves subscribed when it closes.
  static Counts WithLeftBy(const std::string& name, Counts counts) {
    for (const LeftSubscribed& each : kLeftSubscribed) {
      if (name == each.form) {
        ++counts[{each.node, each.record}];
      }
    }
    return counts;
  }

  // What the link reads in three passes over all boards that answer each request at once.
  static std::set<Record> Read() {
    std::set<Record> read;
    NodeIndex = 0;
    ScanCursor = 0;
    for (int ends = 0; ends < 3 * kNodeCount;) {
      LinkScan();
      if (!LinkIdle) {
        read.insert({NodeIndex, ScanCursor});
        ReplyData = {4, 0};
        LinkComplete();
      }
      ends += ScanCursor == 0 ? 1 : 0;
    }
    return read;
  }

  // Opens the two windows and closes first the one and then the other.
  void ExpectCommonToBeReadOn(const std::set<Record>& common, const std::string& closes,
                              const std::string& stays, bool older_closes) {
    SCOPED_TRACE((older_closes ? "the older " : "the newer ") + closes + " closes, " + stays + " stays");
    StartAnew();
    const Form* one = &Open(older_closes ? closes : stays);
    const Form* other = &Open(older_closes ? stays : closes);
    if (!older_closes) {
      std::swap(one, other);
    }
    Read();
    CloseForm(*one);
    Counts left = WithLeftBy(closes, {});
    Counts subscribers = Subscribers();
    const std::set<Record> read = Read();
    for (const Record& record : common) {
      const int still = left.contains(record) ? left[record] : 0;
      EXPECT_EQ(subscribers[record], still + 1) << "node " << record.first << " record " << record.second;
      EXPECT_TRUE(read.contains(record)) << "node " << record.first << " record " << record.second;
    }
    CloseForm(*other);
    EXPECT_EQ(Subscribers(), WithLeftBy(stays, left));
  }

 private:
  VirtualHost host_;
};

TEST_P(SharedRecords, AreReadOnForTheWindowThatStaysAndForNobodyInTheEnd) {
  const std::string name = GetParam().name;
  const std::set<Record> own = SharedOf(name);
  for (const FormEntry& other : FormList()) {
    if (own.empty() || other.name <= name) {
      continue;
    }
    std::set<Record> common;
    std::ranges::set_intersection(own, SharedOf(other.name), std::inserter(common, common.end()));
    if (common.empty()) {
      continue;
    }
    for (const bool older_closes : {true, false}) {
      ExpectCommonToBeReadOn(common, name, other.name, older_closes);
      ExpectCommonToBeReadOn(common, other.name, name, older_closes);
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Forms, SharedRecords, testing::ValuesIn(FormList().begin(), FormList().end()),
                         [](const auto& each) { return std::string(each.param.name); });

// What several windows only write.
using SharedTestRecords = FormFixture;

TEST_F(SharedTestRecords, AChoiceOfOnePeripheralTestIsRunOnceAndClosesThatWindowAlone) {
  Open("FrmTestZeth2");
  Arrive(0, 357, 4);
  const Form& second = form();
  Open("FrmTestZeth");
  Arrive(0, 313, 4);
  Click("Label1(0)");
  Click("Label1(1)");
  EXPECT_EQ(Written(), (std::vector<Write>{{0, 315, 40}, {0, 316, 16}, {0, 358, 86}}));
  EXPECT_TRUE(second.findChild<QWidget*>("Label1(0)")->isEnabled());
  for (const int record : {358, 315, 316}) {
    Arrive(0, record, ParamGet(record, 0));
  }
  EXPECT_EQ(Written(), (std::vector<Write>{{0, 314, 2}}));
}

TEST_F(SharedTestRecords, ADrinkOfTheDosesIsNotRunAsAProduct) {
  Open("FrmTestZeth");
  Arrive(0, 313, 4);
  Click("Label1(0)");
  Click("Label1(1)");
  for (const int record : {358, 315, 316}) {
    Arrive(0, record, ParamGet(record, 0));
  }
  Fire("Timer1");
  Open("FrmDosi");
  for (const Subscription& each : Subscribed()) {
    Arrive(each.node, each.record, 4);
  }
  Written();
  Click("Command1(0)");
  Arrive(0, 315, 1);
  EXPECT_EQ(Written(), (std::vector<Write>{{0, 314, 4}, {0, 315, 1}}));
}

}  // namespace
}  // namespace dosmara
