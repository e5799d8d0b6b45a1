#pragma once

#include "services/ReleaseCenterClient.h"
#include "services/RequestCenterClient.h"
#include "services/UniversalPackClient.h"

namespace orvex {

/// The vendor's three services as the panel reaches them. Making or copying it connects to nothing.
struct OrvexServices {
  ReleaseCenterClient releases;
  UniversalPackClient packs;
  RequestCenterClient requests;
};

}  // namespace orvex
