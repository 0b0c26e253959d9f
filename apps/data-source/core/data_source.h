// The data source as an application sees it: operations of the protocol in, results and conditions out.
//
// The states are the protocol's: 3 loaded, 4 open, 5 enabled, 6 an image is ready, 7 an image is transferred. An
// operation that has no place in the present state gets the sequence error and changes nothing. Closing has a place
// in each of them, since managers forget a source that they closed, whatever it answered: it ends all that stands.
//
// All on the application's thread.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "apps/data-source/core/capabilities.h"
#include "apps/data-source/core/negotiation.h"
#include "apps/data-source/core/surroundings.h"
#include "apps/data-source/scanner/scanner.h"
#include "apps/data-source/twain_protocol.h"

namespace data_source {

class DataSource {
 public:
  struct Parts {
    Scanner& scanner;
    SharedMemory& memory;
    Messenger& messenger;
    SourceDialog& dialog;
  };

  explicit DataSource(const Parts& parts);
  DataSource(const DataSource&) = delete;
  DataSource& operator=(const DataSource&) = delete;

  // One operation of an application. `record` is of the kind that the triplet tells.
  std::uint16_t Handle(std::uint32_t group, std::uint16_t data, std::uint16_t message, void* record);

  // The person at the dialog pressed Scan (or OK, where only settings are wanted) with these settings and areas, or
  // wants the dialog to close. Result of the first: a sentence that says why nothing is scanned, else empty.
  std::string OnScan(const set32::ScanSettings& settings, const std::vector<Area>& areas);
  void OnClose();
  // Called for Messenger::DeliverLater.
  void Deliver(std::uint16_t message);

  int State() const { return state_; }

 private:
  using Operation = std::uint16_t (DataSource::*)(void* record);
  struct Triplet {
    std::uint32_t group;
    std::uint16_t data, message;
    int firstState, lastState;
    Operation operation;
    bool needsRecord = true;
  };
  static const Triplet triplets[];

  struct Job {
    std::filesystem::path page;
    Area area;
    std::uint32_t pageNumber, frameNumber;
  };

  // data_source.cpp
  std::uint16_t Fail(std::uint16_t condition, std::string text = {});
  std::uint16_t GetIdentity(void* record);
  std::uint16_t Open(void* record);
  std::uint16_t Close(void* record);
  std::uint16_t TakeEntryPoint(void* record);
  std::uint16_t GetStatus(void* record);
  std::uint16_t GetStatusText(void* record);
  std::uint16_t Enable(void* record);
  std::uint16_t EnableForSettings(void* record);
  std::uint16_t EnableWith(const twain::UserInterface& wanted, bool onlySettings);
  std::uint16_t Disable(void* record);
  std::uint16_t ProcessEvent(void* record);
  std::string PlanJobs();
  void EndSession();

  // agreements.cpp
  std::uint16_t GetCapability(void* record) { return AnswerCapability(record, Asked::offer); }
  std::uint16_t GetCurrentCapability(void* record) { return AnswerCapability(record, Asked::current); }
  std::uint16_t GetDefaultCapability(void* record) { return AnswerCapability(record, Asked::standard); }
  std::uint16_t SetCapability(void* record);
  std::uint16_t ResetCapability(void* record);
  std::uint16_t QuerySupport(void* record);
  std::uint16_t AnswerCapability(void* record, Asked asked);
  std::uint16_t GiveValues(twain::Capability& record, const Values& values);
  std::uint16_t GetLayout(void* record);
  std::uint16_t GetDefaultLayout(void* record);
  std::uint16_t SetLayout(void* record);
  std::uint16_t ResetLayout(void* record);
  std::uint16_t GetCustomData(void* record);
  std::uint16_t SetCustomData(void* record);
  std::uint16_t GetTransferGroup(void* record);
  std::uint16_t SetTransferGroup(void* record);

  // transfers.cpp
  std::uint16_t GetPending(void* record);
  std::uint16_t EndTransfer(void* record);
  std::uint16_t ResetPending(void* record);
  std::uint16_t GetImageInfo(void* record);
  std::uint16_t GetSetupMemory(void* record);
  std::uint16_t GetSetupFile(void* record);
  std::uint16_t GetDefaultSetupFile(void* record);
  std::uint16_t SetSetupFile(void* record);
  std::uint16_t ResetSetupFile(void* record);
  std::uint16_t TransferNative(void* record);
  std::uint16_t TransferMemory(void* record);
  std::uint16_t TransferFile(void* record);
  ScanOrder PresentOrder() const;
  bool EnsureImage(std::uint16_t& failure);
  void EndJobs();
  std::uint16_t PendingCount() const { return static_cast<std::uint16_t>(jobs_.size() - job_); }

  // A handle with these bytes; null where memory is short.
  twain::Handle Share(const void* bytes, std::size_t size);

  Parts parts_;
  int state_ = 3;
  twain::Identity self_;
  std::uint16_t condition_ = 0;
  std::string text_;  // what is known of the last failure

  Negotiation agreed_;
  std::string file_;
  bool hasDialog_ = false;
  bool onlySettings_ = false;
  std::uint16_t untold_ = 0;  // a message that no manager took, for the next event

  std::vector<Job> jobs_;
  std::size_t job_ = 0;
  std::optional<ScannedImage> image_;
  int rowsGiven_ = 0;
};

// How the source names itself.
twain::Identity OwnIdentity();

}  // namespace data_source
