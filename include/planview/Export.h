// SPDX-License-Identifier: MIT
#pragma once

/// Marks what a shared library of PlanView shows to the outside; everything else in it is hidden. It says the same
/// whether the library is built or used, static or shared, so that a host defines nothing.
#if defined(__GNUC__)
#define PLANVIEW_EXPORT __attribute__((visibility("default")))
#else
#define PLANVIEW_EXPORT
#endif
