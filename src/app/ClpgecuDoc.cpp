#include "app/ClpgecuDoc.h"

#include <algorithm>

#include "app/CommWorker.h"

namespace zelorgas {
namespace {

constexpr std::uint32_t kBaudRate = 19200;
constexpr std::uint8_t kDataBits = 7;
constexpr std::uint8_t kFirstPort = 1;
constexpr std::chrono::milliseconds kOpenSlice{2};

}  // namespace

ClpgecuDoc::ClpgecuDoc(SerialOpener opener, Clock& clock, StatusSink& status)
    : clock_(clock), status_(status), link_(std::move(opener), clock) {
  link_.SetFraming(FramingMode::kAscii);
  link_.SetBaudRate(kBaudRate);
  link_.SetDataBits(kDataBits);
  link_.SetParity(Parity::kEven);
  link_.SetStopBits(StopBits::kOne);
  link_.SetPortNumber(kFirstPort);
  // Said at once, not after three failed rounds with their pauses: a pulled plug is no bad line.
  link_.SetPortLostSink([this] {
    if (run_) Post(CommStatus::kConnecting);
  });
}

bool ClpgecuDoc::OpenLink() {
  // Some drivers, those of wireless adapters above all, take seconds.
  std::atomic<bool> done{false};
  bool open = false;
  std::thread opener([&] {
    open = link_.Open(0, 0, 255);
    done = true;
  });
  while (!done) {
    std::this_thread::sleep_for(kOpenSlice);
    RunSliceHook();
  }
  opener.join();
  return open;
}

ClpgecuDoc::~ClpgecuDoc() { StopWorker(); }

EcuImage ClpgecuDoc::Snapshot() {
  const std::lock_guard guard(image_lock_);
  return image_;
}

bool ClpgecuDoc::PrepareWorker() {
  if (!link_.IsOpen() && !link_.Open(0, 0, 255)) {
    Post(CommStatus::kPortBusy);
    return false;
  }
  if (worker_.joinable() && finished_) worker_.join();
  if (!worker_.joinable()) {
    pause_ = false;
    paused_ = false;
    finished_ = false;
    another_ecu_ = false;
    write_back_due_ = false;
    // Of an earlier connection.
    static_cast<void>(live_records_.TakeAll());
  }
  hold_.Reset();
  run_ = true;
  return true;
}

bool ClpgecuDoc::StartWorker() {
  if (!PrepareWorker()) return false;
  if (worker_.joinable()) return true;
  worker_ = std::thread([this] { CommWorker(*this).Run(); });
  return true;
}

void ClpgecuDoc::TellWorkerToStop() {
  hold_.Set();
  run_ = false;
  Post(CommStatus::kNotConnected);
}

void ClpgecuDoc::StopWorker() {
  if (!worker_.joinable()) return;
  TellWorkerToStop();
  // The worker ends after the exchange it is in and the coil's two, whose waits all have an end.
  while (!finished_) {
    clock_.Sleep(SerialDevice::kWaitSlice);
    RunSliceHook();
  }
  worker_.join();
}

void ClpgecuDoc::PauseWorker(bool pause) {
  pause_ = pause;
  // An answer to an earlier request says nothing about this one.
  if (pause) paused_ = false;
}

void ClpgecuDoc::SetSliceHook(SerialDevice::SliceHook hook) {
  slice_hook_ = hook;
  link_.SetSliceHook(std::move(hook));
}

void ClpgecuDoc::SleepSliced(Clock::Duration duration) {
  const Clock::TimePoint end = clock_.Now() + duration;
  while (clock_.Now() < end) {
    clock_.SleepUntil(std::min(end, clock_.Now() + SerialDevice::kWaitSlice));
    RunSliceHook();
  }
}

}  // namespace zelorgas
