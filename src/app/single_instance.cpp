#include "app/single_instance.h"

#include <utility>

namespace rondora {
namespace {

/// By the second round an instance that is just ending has released its claims.
constexpr int kRounds = 2;

}  // namespace

SingleInstance::SingleInstance(std::vector<InstanceChannel*> channels, Log& log)
    : channels_(std::move(channels)), log_(log) {}

InstanceChannel* SingleInstance::claimAll() {
  bool isFindable = false;
  for (InstanceChannel* channel : channels_) {
    const auto claim = channel->claim();
    if (claim == InstanceChannel::Claim::taken) return channel;
    isFindable = isFindable || claim == InstanceChannel::Claim::first;
  }
  if (!isFindable) log_.error("single-instance check unavailable");
  return nullptr;
}

SingleInstance::Start SingleInstance::claim(StartedBy startedBy) {
  for (int round = 0; round < kRounds; ++round) {
    InstanceChannel* other = claimAll();
    if (other == nullptr) return Start::first;
    release();
    if (startedBy == StartedBy::itself || other->askForSettings()) return Start::handedOver;
  }
  log_.error("another instance is running and does not answer");
  return Start::unanswered;
}

void SingleInstance::release() {
  for (InstanceChannel* channel : channels_) channel->release();
}

void SingleInstance::serve(const SessionRequests& requests) {
  for (InstanceChannel* channel : channels_) channel->serve(requests);
}

}  // namespace rondora
