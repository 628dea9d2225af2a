/// @file
/// See HalfSpaces.h.
#include "curve/lintab/HalfSpaces.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace Lintab {

namespace {

constexpr double Rounding = 1e-14;          ///< share of its length by which the point may stay outside
constexpr double SmallestDirection = 1e-10; ///< part of a normal outside the others that still is a direction
constexpr int MostSteps = 30;               ///< rounding could make half-spaces take turns for ever

double Product(const PerDegree &left, const PerDegree &right)
{
    return std::inner_product(left.begin(), left.end(), right.begin(), 0.0);
}

/// Moves a point along a direction of length 1 until their inner product is 0. Returns how far.
double MoveToFace(PerDegree &point, const PerDegree &direction)
{
    const double distance = -Product(point, direction);
    for (std::size_t k = 0; k < point.size(); ++k)
        point[k] += distance * direction[k];
    return distance;
}

/// What leads a point to the faces of some half-spaces at once.
struct Faces {
    std::vector<PerDegree>
        Directions;                ///< of length 1, at right angles to each other; the first n span the first n normals
    std::vector<PerDegree> Shares; ///< of each normal in these directions

    /// False, with nothing done, when the normal is a mixture of those before it.
    bool Add(const PerDegree &normal);
};

bool Faces::Add(const PerDegree &normal)
{
    PerDegree direction = normal;
    PerDegree shares{};
    // The second pass takes what rounding left behind in the first: normals may be nearly parallel.
    for (int pass = 0; pass < 2; ++pass) {
        for (std::size_t i = 0; i < Directions.size(); ++i)
            shares[i] -= MoveToFace(direction, Directions[i]);
    }
    const double length = std::sqrt(Product(direction, direction));
    if (!(length > SmallestDirection))
        return false;
    shares[Directions.size()] = length;
    for (double &component : direction)
        component /= length;
    Directions.push_back(direction);
    Shares.push_back(shares);
    return true;
}

/// Moves the point to all faces.
/// @return how far each half-space pushes it for that; a negative number is a pull
std::vector<double> MoveToFaces(PerDegree &point, const Faces &faces)
{
    std::vector<double> lengths;
    for (const PerDegree &direction : faces.Directions)
        lengths.push_back(MoveToFace(point, direction));
    for (std::size_t i = lengths.size(); i-- > 0;) {
        lengths[i] /= faces.Shares[i][i];
        for (std::size_t j = 0; j < i; ++j)
            lengths[j] -= lengths[i] * faces.Shares[i][j];
    }
    return lengths;
}

} // namespace

HalfSpaces::HalfSpaces(const PerDegree &point) : m_point(point), m_nearest(point) {}

void HalfSpaces::Add(const PerDegree &normal)
{
    m_normals.push_back(normal);
    const double outside = -Rounding * std::sqrt(Product(m_point, m_point));
    for (int step = 0; step < MostSteps; ++step) {
        const auto worst =
            std::min_element(m_normals.begin(), m_normals.end(), [this](const PerDegree &a, const PerDegree &b) {
                return Product(m_nearest, a) < Product(m_nearest, b);
            });
        if (Product(m_nearest, *worst) >= outside)
            return;
        const auto pushing = static_cast<std::size_t>(worst - m_normals.begin());
        m_pushes.push_back({pushing, 0});
        Settle();
        if (m_pushes.empty() || m_pushes.back().HalfSpace != pushing)
            return; // no more than rounding tells that it ought to push
    }
}

/// Moves the point to the faces of the half-spaces that push, and takes out those that would pull it there, or whose
/// normals are mixtures of others.
void HalfSpaces::Settle()
{
    for (bool settled = false; !settled;) {
        Faces faces;
        for (auto push = m_pushes.begin(); push != m_pushes.end();)
            push = faces.Add(m_normals[push->HalfSpace]) ? push + 1 : m_pushes.erase(push);
        m_nearest = m_point;
        settled = Lengthen(MoveToFaces(m_nearest, faces));
    }
}

/// Brings the pushes to the wanted lengths, or so far that the first of them has come down to nothing. That one is
/// taken out, and the result is false.
bool HalfSpaces::Lengthen(const std::vector<double> &wanted)
{
    double share = 1;
    auto first = m_pushes.end();
    for (std::size_t i = 0; i < wanted.size(); ++i) {
        if (wanted[i] > 0)
            continue;
        const double held = m_pushes[i].Length;
        const double untilNothing = held > 0 ? held / (held - wanted[i]) : 0;
        if (first == m_pushes.end() || untilNothing < share) {
            share = untilNothing;
            first = m_pushes.begin() + static_cast<std::ptrdiff_t>(i);
        }
    }
    for (std::size_t i = 0; i < wanted.size(); ++i)
        m_pushes[i].Length += share * (wanted[i] - m_pushes[i].Length);
    if (first == m_pushes.end())
        return true;
    m_pushes.erase(first);
    return false;
}

} // namespace Lintab
