#pragma once

namespace orvex::ServicePaths {

// Below the base address of the vendor's services.
inline constexpr auto kRequests = "/api/orvex/requests";
inline constexpr auto kReleases = "/downloads/finalcut";
inline constexpr auto kPacks = "/downloads/orvex/packs";
/// The releases' manifest and the packs' catalog in their folders.
inline constexpr auto kManifest = "manifest.json";

}  // namespace orvex::ServicePaths
