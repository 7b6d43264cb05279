// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/line_form_fixture.h"

#include <algorithm>
#include <deque>
#include <exception>
#include <iterator>

#include "link/identification.h"
#include "link/link_engine.h"
#include "store/index_files.h"
#include "store/parameter_table.h"

namespace dosmara {

namespace {

// Whether the machine has sent everything that somebody wants: a record without a period is no longer due
// then.
bool NothingIsWaitedFor() {
  for (int node = 0; node < kNodeCount; ++node) {
    for (int index = 1; index < NodeRecordCount[node]; ++index) {
      const ParamRec& record = ParamTable[node][index];
      const bool here = (record.Flags & kArrived) != 0 && (record.Period != 0 || (record.Flags & kDue) == 0);
      if ((record.Flags & kWanted) != 0 && !here) {
        return false;
      }
    }
  }
  return true;
}

}  // namespace

class LineFormFixture::Usher : public LoadedForm {
 public:
  Usher(LoadedForm* form, Places& arrived) : form_(form), arrived_(arrived) {}

  void SLabelChange(std::int32_t index, double value) override {
    arrived_.insert({NodeIndex, index});
    try {
      form_->SLabelChange(index, value);
    } catch (const std::exception& error) {
      ADD_FAILURE() << "a form threw at record " << index << ": " << error.what();
    }
  }

 private:
  LoadedForm* form_;
  Places& arrived_;
};

template <class Action>
auto LineFormFixture::Run(const Action& action) {
  const std::vector<LoadedForm*> forms = LoadedForms;
  std::deque<Usher> ushers;
  for (LoadedForm*& form : LoadedForms) {
    form = &ushers.emplace_back(form, arrived_);
  }
  const auto result = action();
  LoadedForms = forms;
  return result;
}

LineFormFixture::LineFormFixture() {
  for (int node = 0; node < kNodeCount; ++node) {
    LoadFullIndex(PROGRAM_DATA, FullIndexName(NodeType[node], NodeRevision[node], NodeFileNumber[node]),
                  node);
  }
  board_.TakeTable();
  host_.board = &board_;
  LinkAttach(host_);
  host_.OpenPort(kFirstPort);
  host_.EnableTimer(LinkTimer::Timer1);
}

Form& LineFormFixture::OpenFilled(const std::string& name) {
  const std::vector<Subscription> before = Subscribed();
  Form& form = Open(name);
  std::vector<Subscription> added;  // also those that another form has subscribed already
  std::ranges::set_difference(Subscribed(), before, std::back_inserter(added), {});
  arrived_.clear();
  EXPECT_TRUE(RunUntil([&] {
    return std::ranges::all_of(added, [this](const Subscription& each) {
      return arrived_.contains({each.node, each.record});
    });
  })) << name;
  EXPECT_TRUE(RunUntilFresh());
  return form;
}

void LineFormFixture::RunFor(microseconds time) {
  Run([&] {
    host_.RunFor(time);
    return true;
  });
}

bool LineFormFixture::RunUntil(const std::function<bool()>& condition, microseconds limit) {
  return Run([&] { return host_.RunUntil(condition, limit); });
}

bool LineFormFixture::RunUntilFresh() {
  return RunUntil([] { return ScanCursor == 0 && NothingIsWaitedFor(); });
}

bool LineFormFixture::RunUntilWrite() {
  std::size_t seen = host_.frames.size();
  return RunUntil([&] {
    for (; seen < host_.frames.size(); ++seen) {
      if (const auto request = board_.Read(host_.frames[seen]); request && request->write) {
        return true;
      }
    }
    return false;
  });
}

std::vector<RecordRequest> LineFormFixture::Requests() {
  std::vector<RecordRequest> requests;
  for (; frames_told_ < host_.frames.size(); ++frames_told_) {
    if (const auto request = board_.Read(host_.frames[frames_told_])) {
      requests.push_back(*request);
    } else {
      ADD_FAILURE() << "no board would take frame " << frames_told_;
    }
  }
  return requests;
}

std::vector<Write> LineFormFixture::Written() {
  std::vector<Write> writes;
  for (const RecordRequest& request : Requests()) {
    if (request.write) {
      writes.push_back({request.node, request.record, static_cast<int>(request.value)});
    }
  }
  return writes;
}

std::vector<Write> LineFormFixture::Waiting() {
  std::vector<Write> writes;
  for (int node = 0; node < kNodeCount; ++node) {
    for (int record = 1; record <= NodeRecordCount[node]; ++record) {
      if ((ParamTable[node][record].Flags & kWritePending) != 0) {
        writes.push_back({node, record, static_cast<int>(ParamGet(record, node))});
      }
    }
  }
  return writes;
}

}  // namespace dosmara
