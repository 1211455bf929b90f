// SPDX-License-Identifier: MIT
// A library of compiled headers needs a source; see PrecompiledHeaders.cmake.
