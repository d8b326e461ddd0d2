#pragma once

#include <boost/numeric/ublas/matrix.hpp>

#include <cstdint>
#include <vector>

namespace Orx::DataCore {

// Dense row-major matrices: size1 rows, size2 columns. The storage is a
// std::vector: the default storage of this boost release calls allocator
// members that C++20 removed. data().data() is the first element.
using IntMatrix = boost::numeric::ublas::matrix<std::int32_t, boost::numeric::ublas::row_major,
                                                std::vector<std::int32_t>>;
using FloatMatrix = boost::numeric::ublas::matrix<float, boost::numeric::ublas::row_major, std::vector<float>>;
using FloatMatrixVector = std::vector<FloatMatrix>;

}  // namespace Orx::DataCore
