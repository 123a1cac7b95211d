// The program that the operator has files sent to: which one it is, and sending. Only the operator
// chooses it, and it is kept for him alone, in no file that comes with a drawing or a setup.
// Owns: SendChoice, sendChoiceIn, sendChoiceText, readSendChoice, writeSendChoice, commandText,
//       sendFile.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "cnc/hand_over.h"

namespace tess {

struct SendChoice {
  std::string program;    // a full path; "" for none yet
  std::string confirmed;  // the one whose command the operator has seen and agreed to
  friend bool operator==(const SendChoice&, const SendChoice&) = default;
};

// The two directions on the content of the record. Any bytes are read; what is no choice is none.
SendChoice sendChoiceIn(std::string_view content);
std::string sendChoiceText(const SendChoice& choice);

// The choice of this user. A record that cannot be read is reported, one that belongs to somebody
// else is passed over; both count as none.
SendChoice readSendChoice(const HandOver& handOver);
// Raises what writeFile does, and Path not found where nothing is kept.
void writeSendChoice(const HandOver& handOver, const SendChoice& choice);

// A command as it is shown: each of its texts in quotes, with signs for what could not be seen.
std::string commandText(const std::vector<std::string>& texts);

// Starts the program with the file. The operator names the program where there is none yet, and
// agrees to the command before it runs for the first time. What keeps it from running is told in a
// message.
void sendFile(const HandOver& handOver, const std::string& file);

}  // namespace tess
