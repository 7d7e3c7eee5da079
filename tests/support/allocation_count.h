// Counts the blocks that COM's allocator has given out and not got back.
// Automation texts (BSTR) come from that allocator.
#pragma once

namespace support {

// Blocks given out since the first call of this and still out. The difference
// of two answers is what was left behind between them. Automation keeps a few
// freed texts for new ones: run what is measured some times beforehand.
long outstandingAllocations();

}
