"""Writes monotone_points.csv and monotone_fits.csv into the folder it is run in: tables of rising points, and for each
of them the polynomial of least squares among those of its degree that nowhere fall. Needs Python 3 and mpmath.

Polynomials are powers of u, the stretch mapped to -1 to 1; 150 digits make up for their condition. The polynomial is
the free fit moved by pushes at a few places of the stretch, where the slope is 0 then (C. L. Lawson, R. J. Hanson,
1974). The places where the slope is lowest are added until it is nowhere below -1e-30.
"""
from mpmath import exp, floor, im, lu_solve, matrix, mp, mpf, polyroots, re, sqrt, tanh

mp.dps = 150
QUERIES = 41  # even over the stretch


def value_row(degree, u):
    return matrix([u ** k for k in range(degree + 1)])


def slope_row(degree, u):
    return matrix([0] + [k * u ** (k - 1) for k in range(1, degree + 1)])


def product(left, right):
    return (left.T * right)[0]


def value(polynomial, u):
    return product(polynomial, value_row(polynomial.rows - 1, u))


def slope(polynomial, u):
    return product(polynomial, slope_row(polynomial.rows - 1, u))


def low_places(polynomial):
    """Both ends and where the slope is level."""
    bend = [k * (k - 1) * polynomial[k] for k in range(polynomial.rows - 1, 1, -1)]
    roots = polyroots(bend, maxsteps=500, extraprec=600)
    return [mpf(-1), mpf(1)] + [re(r) for r in roots if abs(im(r)) < 1e-20 and abs(re(r)) <= 1]


class Fits:
    def __init__(self, points):
        self.start, self.end = mpf(points[0][0]), mpf(points[-1][0])
        self.u = [self.position(x) for x, _ in points]
        self.y = [mpf(y) for _, y in points]

    def position(self, x):
        return 2 * (mpf(x) - self.start) / (self.end - self.start) - 1

    def free(self, degree):
        """The free fit, and the covariance of its coefficients for y of variance 1."""
        rows = [value_row(degree, u) for u in self.u]
        covariance = sum((r * r.T for r in rows), matrix(degree + 1, degree + 1)) ** -1
        return covariance * sum((y * r for r, y in zip(rows, self.y)), matrix(degree + 1, 1)), covariance

    def sum_of_squares(self, polynomial):
        return sum((y - value(polynomial, u)) ** 2 for u, y in zip(self.u, self.y))

    def degree(self):
        """The smallest degree whose sum of squared leave-one-out residuals is at most 1.05 of the least, among those
        whose fit has at most 16 times the variance of a point."""
        count = len(set(self.u))
        places = [t * (3 - t * t) / 2 for t in (mpf(i) / 16 - 1 for i in range(33))]
        press = []
        for degree in range(min(8, int(floor(2 * sqrt(count))) - 1, count - 2) + 1):
            polynomial, covariance = self.free(degree)

            def variance(u):
                return product(value_row(degree, u), covariance * value_row(degree, u))

            if max(map(variance, places)) > 16:
                break
            press.append(sum(((y - value(polynomial, u)) / (1 - variance(u))) ** 2 for u, y in zip(self.u, self.y)))
        return min(k for k, p in enumerate(press) if p <= mpf("1.05") * min(press))

    def rising(self, degree):
        free, covariance = self.free(degree)
        polynomial, pushes = free, {}
        while True:
            wrong = [u for u in low_places(polynomial) if slope(polynomial, u) < mpf("-1e-30")]
            if not wrong:
                return polynomial
            polynomial, pushes = pushed(free, covariance, pushes | dict.fromkeys(wrong, mpf(0)))


def pushed(free, covariance, pushes):
    """The nearest polynomial that does not fall at any of some places, and the pushes of those that hold it there."""
    rows = {u: slope_row(free.rows - 1, u) for u in pushes}
    active = [u for u in pushes if pushes[u] > 0]
    polynomial = free
    while True:
        while active:
            system = matrix([[product(rows[u], covariance * rows[v]) for v in active] for u in active])
            wanted = dict(zip(active, lu_solve(system, matrix([-slope(free, u) for u in active]))))
            # Pushes that would turn to pulls are taken out, the first of them first.
            shares = {u: pushes[u] / (pushes[u] - wanted[u]) for u in active if wanted[u] <= 0}
            share = min(shares.values(), default=mpf(1))
            for u in active:
                pushes[u] += share * (wanted[u] - pushes[u])
            if not shares:
                break
            active.remove(min(shares, key=shares.get))
        polynomial = free + sum((pushes[u] * (covariance * rows[u]) for u in active), 0 * free)
        worst = min(pushes, key=lambda u: slope(polynomial, u))
        if slope(polynomial, worst) > mpf("-1e-60"):
            return polynomial, {u: pushes[u] for u in active}
        pushes[worst] = mpf(0)
        active.append(worst)


def table(function, inputs):
    return [(float(x), float(function(mpf(float(x))))) for x in inputs]


def decades(count, points):
    """Up to 1, even in the logarithm."""
    return [mpf(10) ** (mpf(count) * i / (points - 1) - count) for i in range(points)]


def even(points):
    return [mpf(i) / (points - 1) for i in range(points)]


TABLES = {
    "exponential": table(lambda x: exp(8 * (x - 1)), decades(3, 31)),
    "saturation": table(lambda x: 1 - exp(-6 * x), decades(2, 16)),
    "S": table(lambda x: tanh(8 * x - 4), even(33)),
    "knee": table(lambda x: max(0, x - mpf("0.4")), even(21)),
}


def main():
    with open("monotone_points.csv", "w") as points_file, open("monotone_fits.csv", "w") as fits_file:
        print("name,x,y", file=points_file)
        print("name,degree,what,x,value", file=fits_file)
        for name, points in TABLES.items():
            for x, y in points:
                print(f"{name},{x!r},{y!r}", file=points_file)
            fits = Fits(points)
            degree = fits.degree()
            polynomial = fits.rising(degree)
            print(f"{name},{degree},rss,,{float(fits.sum_of_squares(polynomial))!r}", file=fits_file)
            for query in range(QUERIES):
                x = float(fits.start + (fits.end - fits.start) * query / (QUERIES - 1))
                print(f"{name},{degree},y,{x!r},{float(value(polynomial, fits.position(x)))!r}", file=fits_file)


if __name__ == "__main__":
    main()
