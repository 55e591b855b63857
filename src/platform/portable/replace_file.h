/// Changing a file so that it is never seen half-written.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/portable/text_change.h"
#include "platform/system_error.h"

namespace t_genproc::portable {

/// Room for the text of a file. The system copies several times faster to an aligned address.
struct alignas(64) BufferBlock {
    char bytes[64];
};
using ReadBuffer = std::vector<BufferBlock>;

enum class Reading {
    AtOnce,  ///< the lines that one look gives: enough to find something in, not to know that it is missing
    BetweenWrites  ///< the whole text, after waiting for a writer at work
};

enum class Purpose {
    Read,
    Change  ///< AccessDenied also where changeFile would be refused
};

/// Reads the file at `location` into `buffer`, whose size only ever grows, and gives its text. Fails where it
/// cannot be read or is longer than 256 MiB.
Outcome<std::string_view> readFile(const std::string& location, Reading reading, ReadBuffer& buffer,
                                   Purpose purpose = Purpose::Read);

/// Applies to the text of a file, which is empty where there is no file yet, what `change` makes of it, or
/// fails as that does.
///
/// The new text is written beside the file, under a hidden name of this user's (".NAME.UID.new"), and then
/// takes the file's place in one step: whoever reads meanwhile, and whatever kills this process, the file is
/// one complete text, the old or the new one. Writers lock the file that they replace and wait for each
/// other; the system ends the lock of a writer that dies, and the next one clears away what it left.
/// Permissions, access lists, owner and symbolic links are kept. Nothing waits for the disk: a power failure
/// may cost the last changes.
///
/// Where the folder takes no new file, the owner cannot be kept, or the file has several names, the text is
/// changed in place, from the position of the change on, once the room for it is secured: a reader may see
/// such a change half-way, and a writer that is killed in it leaves it so.
///
/// A failure leaves the old text.
SystemError changeFile(const std::string& location, ReadBuffer& buffer,
                       const std::function<Outcome<TextChange>(std::string_view)>& change);

}  // namespace t_genproc::portable
