#include "receiver/NmeaPeer.h"

namespace korvel {

std::unique_ptr<NmeaPeer> makeNmeaPeer() { return nullptr; }

}  // namespace korvel
