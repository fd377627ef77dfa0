#pragma once

/** The paths that a restored document applies before all others, in this order. */
inline constexpr const char* ndAdj = "/Factory/ND_ADJ";
inline constexpr const char* hdrPlusMode = "/Picture/Expert Settings/HDR+ Mode";
inline constexpr const char* pictureMode = "/Picture/Picture Mode";
