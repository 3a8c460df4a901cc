#ifndef KOVRAN_TOOLS_INSPECT_PROCESS_STANDARD_STREAMS_H
#define KOVRAN_TOOLS_INSPECT_PROCESS_STANDARD_STREAMS_H

namespace kovran::inspect {

// Takes the numbers of those standard streams that the program was started without, so that no file
// opened later gets one of them and then a message written into it. Using such a stream fails.
void reserve_standard_streams();

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_PROCESS_STANDARD_STREAMS_H
