// Vectors, matrices, coordinate systems and rotations against Eigen and GLM: nanoseconds of one.
//
//   geometry_vectors
#include "Comparison.h"
#include "Workload.h"

#include <ZEK_lib.h>

#define GLM_FORCE_INLINE
#include <Eigen/Dense>
#include <cmath>
#include <cstring>
#include <glm/glm.hpp>
#include <glm/gtc/matrix_transform.hpp>
#include <numbers>

using namespace bench;

namespace {

constexpr std::size_t kCount = 10000;
constexpr double kRadians = std::numbers::pi / 180.0;

Points s_a = RandomPoints(kCount, 10.0, 3);
Points s_b = RandomPoints(kCount, 10.0, 7);
Points s_out(kCount);

using EigenPoint = Eigen::Map<Eigen::Vector3d>;

EigenPoint Eigens(std::array<double, 3>& point)
{
    return EigenPoint(point.data());
}

glm::dvec3 Glms(const std::array<double, 3>& point)
{
    return {point[0], point[1], point[2]};
}

// Runs `each` over all points, and sums up what stands in s_out.
template <class Each>
Work OverAll(Each each)
{
    return [each] {
        for (std::size_t i = 0; i < kCount; ++i)
            each(i);
        Use(s_out.data());
        return s_out[17][0] + s_out[4711][1] + s_out[kCount - 1][2];
    };
}

// Runs `each` over all points, and sums up its answers.
template <class Each>
Work SumOverAll(Each each)
{
    return [each] {
        double sum = 0.0;
        for (std::size_t i = 0; i < kCount; ++i)
            sum += each(i);
        return sum;
    };
}

void Store(std::size_t i, const glm::dvec3& v)
{
    s_out[i] = {v.x, v.y, v.z};
}

void CompareVectors()
{
    // As a host sees it that takes the address of a routine: a call into the library.
    static void (*volatile called)(double*, double*, double*) = CMathFunc::mathCross;
    Compare(
        "cross product", kCount,
        {{"inline", OverAll([](std::size_t i) {
              CMathFunc::mathCross(s_a[i].data(), s_b[i].data(), s_out[i].data());
          })},
         {"called", OverAll([](std::size_t i) { called(s_a[i].data(), s_b[i].data(), s_out[i].data()); })},
         {"Eigen", OverAll([](std::size_t i) { Eigens(s_out[i]) = Eigens(s_a[i]).cross(Eigens(s_b[i])); })},
         {"GLM", OverAll([](std::size_t i) { Store(i, glm::cross(Glms(s_a[i]), Glms(s_b[i]))); })}});
    Compare(
        "dot product", kCount,
        {{"inline", SumOverAll([](std::size_t i) { return CMathFunc::Dot(s_a[i].data(), s_b[i].data()); })},
         {"Eigen", SumOverAll([](std::size_t i) { return Eigens(s_a[i]).dot(Eigens(s_b[i])); })},
         {"GLM", SumOverAll([](std::size_t i) { return glm::dot(Glms(s_a[i]), Glms(s_b[i])); })}});
    Compare(
        "unit vector", kCount,
        {{"inline", OverAll([](std::size_t i) { CMathFunc::mathNormalize(s_a[i].data(), s_out[i].data()); })},
         {"Eigen", OverAll([](std::size_t i) { Eigens(s_out[i]) = Eigens(s_a[i]).normalized(); })},
         {"GLM", OverAll([](std::size_t i) { Store(i, glm::normalize(Glms(s_a[i]))); })}});
    Compare("angle between", kCount,
            {{"library", SumOverAll([](std::size_t i) {
                  return CMathFunc::mathCrossAngle(s_a[i].data(), s_b[i].data());
              })},
             {"Eigen", SumOverAll([](std::size_t i) {
                  const auto a = Eigens(s_a[i]), b = Eigens(s_b[i]);
                  return std::acos(a.dot(b) / (a.norm() * b.norm())) / kRadians;
              })},
             {"GLM", SumOverAll([](std::size_t i) {
                  return std::acos(glm::dot(glm::normalize(Glms(s_a[i])), glm::normalize(Glms(s_b[i])))) /
                         kRadians;
              })}});
}

// 4x4 matrices, row-major.
struct Matrix {
    double at[4][4];
};

std::vector<Matrix> RandomMatrices(std::uint64_t seed)
{
    Numbers numbers(seed);
    std::vector<Matrix> matrices(kCount);
    for (Matrix& matrix : matrices) {
        for (auto& row : matrix.at) {
            for (double& entry : row)
                entry = numbers.Next(-1.0, 1.0);
        }
    }
    return matrices;
}

void CompareMatrices()
{
    using EigenMatrix = Eigen::Matrix<double, 4, 4, Eigen::RowMajor>;
    static std::vector<Matrix> a = RandomMatrices(11), b = RandomMatrices(12), c = a;
    const auto answer = [] {
        Use(c.data());
        return c[99].at[0][3] + c[kCount - 1].at[2][1];
    };
    // Row-major products read as column-major ones are the products the other way round.
    Compare("4x4 product", kCount,
            {{"inline",
              [answer] {
                  for (std::size_t i = 0; i < kCount; ++i)
                      CMathFunc::mathMxMult(a[i].at, b[i].at, c[i].at);
                  return answer();
              }},
             {"Eigen",
              [answer] {
                  for (std::size_t i = 0; i < kCount; ++i)
                      Eigen::Map<EigenMatrix>(&c[i].at[0][0]).noalias() =
                          Eigen::Map<EigenMatrix>(&a[i].at[0][0]) * Eigen::Map<EigenMatrix>(&b[i].at[0][0]);
                  return answer();
              }},
             {"GLM", [answer] {
                  for (std::size_t i = 0; i < kCount; ++i) {
                      glm::dmat4 first, second;
                      std::memcpy(&first, b[i].at, sizeof first);
                      std::memcpy(&second, a[i].at, sizeof second);
                      const glm::dmat4 product = first * second;
                      std::memcpy(c[i].at, &product, sizeof product);
                  }
                  return answer();
              }}});
    static Matrix& one = a[5];
    static std::vector<std::array<double, 4>> rows(kCount, {1.0, 2.0, 3.0, 1.0}), out(kCount);
    for (std::size_t i = 0; i < kCount; ++i)
        std::copy(s_a[i].begin(), s_a[i].end(), rows[i].begin());
    const auto outAnswer = [] {
        Use(out.data());
        return out[99][0] + out[kCount - 1][3];
    };
    Compare("row vector x 4x4", kCount,
            {{"inline",
              [outAnswer] {
                  for (std::size_t i = 0; i < kCount; ++i)
                      CMathFunc::mathVecMult(rows[i].data(), one.at, out[i].data());
                  return outAnswer();
              }},
             {"Eigen, all at once",
              [outAnswer] {
                  Eigen::Map<Eigen::Matrix4d> m(&one.at[0][0]);
                  Eigen::Map<Eigen::Matrix4Xd> p(rows[0].data(), 4, kCount), q(out[0].data(), 4, kCount);
                  q.noalias() = m * p;
                  return outAnswer();
              }},
             {"GLM", [outAnswer] {
                  glm::dmat4 m;
                  std::memcpy(&m, one.at, sizeof m);
                  for (std::size_t i = 0; i < kCount; ++i) {
                      const glm::dvec4 q = m * glm::dvec4(rows[i][0], rows[i][1], rows[i][2], rows[i][3]);
                      std::memcpy(&out[i], &q, sizeof q);
                  }
                  return outAnswer();
              }}});
}

void CompareFrames()
{
    static double frame[3][3] = {{0.36, 0.48, -0.8}, {-0.8, 0.6, 0.0}, {0.48, 0.64, 0.6}};
    const auto answer = [] {
        Use(s_out.data());
        return s_out[17][0] + s_out[4711][1] + s_out[kCount - 1][2];
    };
    Compare("points into a frame", kCount,
            {{"all at once",
              [answer] {
                  s_out = s_a;
                  CMathFunc::mathTranUCS(frame[0], frame[1], frame[2], kCount,
                                         reinterpret_cast<double(*)[3]>(s_out.data()));
                  return answer();
              }},
             {"inline, one by one",
              [answer] {
                  s_out = s_a;
                  for (auto& p : s_out)
                      CMathFunc::mathGCS2UCS(p[0], p[1], p[2], frame);
                  return answer();
              }},
             {"Eigen, all at once",
              [answer] {
                  s_out = s_a;
                  Eigen::Map<Eigen::Matrix<double, 3, 3, Eigen::RowMajor>> m(&frame[0][0]);
                  Eigen::Map<Eigen::Matrix3Xd> p(s_out[0].data(), 3, kCount);
                  p = m * p;
                  return answer();
              }},
             {"GLM", [answer] {
                  s_out = s_a;
                  glm::dmat3 m;
                  std::memcpy(&m, frame, sizeof m);
                  for (std::size_t i = 0; i < kCount; ++i)
                      Store(i, Glms(s_out[i]) * m);
                  return answer();
              }}});
}

double Angle(std::size_t i)
{
    return 30.0 + static_cast<double>(i & 63U);
}

void CompareRotations()
{
    Compare("rotation about Z", kCount,
            {{"library", OverAll([](std::size_t i) {
                  s_out[i] = s_a[i];
                  CMathFunc::mathRotateZ(Angle(i), s_out[i][0], s_out[i][1], s_out[i][2]);
              })},
             {"Eigen", OverAll([](std::size_t i) {
                  Eigens(s_out[i]) =
                      Eigen::AngleAxisd(Angle(i) * kRadians, Eigen::Vector3d::UnitZ()) * Eigens(s_a[i]);
              })},
             {"GLM", OverAll([](std::size_t i) {
                  const glm::dmat4 turn =
                      glm::rotate(glm::dmat4(1), Angle(i) * kRadians, glm::dvec3(0, 0, 1));
                  Store(i, glm::dvec3(turn * glm::dvec4(Glms(s_a[i]), 1)));
              })}});
    Compare("rotation about an axis", kCount,
            {{"library", OverAll([](std::size_t i) {
                  s_out[i] = s_a[i];
                  CMathFunc::mathRotate(Angle(i), s_b[i][0], s_b[i][1], s_b[i][2], s_out[i][0], s_out[i][1],
                                        s_out[i][2]);
              })},
             {"Eigen", OverAll([](std::size_t i) {
                  Eigens(s_out[i]) =
                      Eigen::AngleAxisd(Angle(i) * kRadians, Eigens(s_b[i]).normalized()) * Eigens(s_a[i]);
              })},
             {"GLM", OverAll([](std::size_t i) {
                  const glm::dmat4 turn = glm::rotate(glm::dmat4(1), Angle(i) * kRadians, Glms(s_b[i]));
                  Store(i, glm::dvec3(turn * glm::dvec4(Glms(s_a[i]), 1)));
              })}});
}

} // namespace

int main()
{
    CompareVectors();
    CompareMatrices();
    CompareFrames();
    CompareRotations();
}
