#include "preview/recordpipe.h"

#include <utility>

namespace {

// Few enough records to bound the memory held ahead of the tessellation.
constexpr size_t kBatch = 64;
constexpr size_t kMostBatches = 4;

}  // namespace

RecordPipe::RecordPipe(std::istream& in, std::vector<std::string> unread) : reader_(in) {
  reader_.leaveValuesUnread(std::move(unread));
  thread_ = std::thread([this] { run(); });
}

RecordPipe::~RecordPipe() {
  {
    std::lock_guard lock(mutex_);
    stop_ = true;
  }
  changed_.notify_all();
  thread_.join();
}

void RecordPipe::run() {
  bool end = false;
  while (!end) {
    std::vector<ZelRecord> batch;
    std::exception_ptr error;
    try {
      ZelRecord record;
      while (batch.size() < kBatch && reader_.next(record)) batch.push_back(std::move(record));
    } catch (...) {
      error = std::current_exception();
    }
    end = error || batch.size() < kBatch;
    std::vector<std::vector<ZelRecord>> spent;
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [&] { return stop_ || batches_.size() < kMostBatches; });
    if (stop_) return;
    batches_.push_back(std::move(batch));
    spent.swap(spent_);
    done_ = end;
    error_ = error;
    changed_.notify_all();
  }
}

bool RecordPipe::next(std::vector<ZelRecord>& batch) {
  std::unique_lock lock(mutex_);
  changed_.wait(lock, [&] { return !batches_.empty() || done_; });
  if (!batches_.empty()) {
    if (!batch.empty()) spent_.push_back(std::move(batch));
    batch = std::move(batches_.front());
    batches_.pop_front();
    changed_.notify_all();
    return true;
  }
  if (std::exception_ptr error = std::exchange(error_, nullptr)) std::rethrow_exception(error);
  return false;
}
