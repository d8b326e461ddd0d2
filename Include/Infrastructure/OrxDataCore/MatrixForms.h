#pragma once

#include "Infrastructure/OrxDataCore/Matrices.h"
#include "Platform/DataStreams.h"

#include <cstdint>
#include <string>

// The binary and plain text forms of one dense matrix, shared by the matrix
// serializers and by the container files that store matrices in blocks.
namespace Orx::DataCore::MatrixForms {

// size1 and size2 as 4 bytes each, then the elements row after row, 4 bytes
// each. Raises LogicError for a size beyond 4 bytes. Returns the bytes written.
template <class M>
std::uint64_t WriteBinary(Orx::Core::DataOutputStream& stream, const M& m);

// Reads that form from at most numberOfBytes bytes of the stream. The matrix
// is resized, without keeping its contents, only when a size differs; sizes
// that promise more elements than the bytes hold raise LogicError before
// anything is allocated. Returns the bytes read.
template <class M>
std::uint64_t ReadBinary(std::uint64_t numberOfBytes, Orx::Core::DataInputStream& stream, M& m);

// 8 + 4 bytes for each element.
template <class M>
std::uint64_t BinarySize(const M& m);

// The elements in storage order, a blank between two, but a line break after
// every size1 elements.
template <class M>
std::string PlainText(const M& m);

// Fills the matrix from such a text; white space is any of " \t\r\n". Raises
// LogicError unless the text holds exactly size1 x size2 numbers.
template <class M>
void FromPlainText(const std::string& text, std::uint64_t size1, std::uint64_t size2, M& m);

}  // namespace Orx::DataCore::MatrixForms
