// GNUstep's headers ask for this one wherever the compiler knows blocks; nothing in it is needed here.
#pragma once
