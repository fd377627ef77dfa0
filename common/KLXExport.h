#pragma once

/// Marks what the shared library offers; everything else stays inside it.
#define KLX_API __attribute__((visibility("default")))
