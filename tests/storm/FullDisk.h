#pragma once

/// The disk below every store that is opened after install(): it can be full, and nobody waits for it.
namespace FullDisk {
void install();
void setFull(bool full);
}
