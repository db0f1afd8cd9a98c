// Of each mix two plots: the money against the service, and what the cassettes hold over the days.
const MOST_MONEY_TICKS = 6;
const WIDEST = 1.5;
const POINT = 3;
const MARK = 6;
const NICE = [1, 2, 5, 10];

/** A round number that goes into a range at most so many times. */
function niceStep(range, most) {
    const rough = Math.max(range / most, 1e-9);
    const unit = 10 ** Math.floor(Math.log10(rough));
    return unit * NICE.find((times) => times * unit >= rough);
}

/** The two scales of a curve of money and service. */
class MoneyScale {
    constructor(fill) {
        const money = fill.curve.map((point) => Number(point.money));
        const now = Number(fill.money.now);
        const shares = fill.curve.map((point) => Number(point.promised)).concat(Number(answer.input.service));
        this.hasNow = fill.now.dangerous === 0 && now <= WIDEST * money[money.length - 1] &&
            now * WIDEST >= money[0];
        const all = this.hasNow ? money.concat(now) : money;
        const shown = this.hasNow ? shares.concat(Number(fill.now.promised)) : shares;
        this.least = Math.min(...all);
        this.most = Math.max(...all, this.least + 1);
        this.lowest = Math.min(Math.floor(Math.min(...shown) / 10) * 10, 90);
    }

    x(money) {
        return LEFT + (Number(money) - this.least) / (this.most - this.least) * plotWidth();
    }

    y(share) {
        return yOf((Number(share) - this.lowest) / (100 - this.lowest));
    }

    drawAxes(picture) {
        for (const share of [this.lowest, (this.lowest + 100) / 2, 100]) {
            const y = this.y(share);
            picture.append(shape("path", { d: `M${LEFT} ${y}H${LEFT + plotWidth()}`, class: "grid" }));
            picture.append(shape("text", { x: LEFT - 6, y: y + 4, class: "tick left" }, share + "%"));
        }
        const step = niceStep(this.most - this.least, Math.min(MOST_MONEY_TICKS, plotWidth() / 60));
        for (let money = Math.ceil(this.least / step) * step; money <= this.most; money += step) {
            const x = this.x(money);
            picture.append(shape("path", { d: `M${x} ${TOP}V${TOP + view.height + 5}`, class: "grid" }));
            picture.append(shape("text", { x: x + 3, y: TOP + view.height + 16, class: "tick" },
                String(Math.round(money))));
        }
    }
}

/** A word beside a point; behind the last one there is as much room as labels have. */
function addMark(picture, x, y, text) {
    picture.append(shape("text", { x: x + MARK + 4, y: y + 16, class: "mark" }, text));
}

function moneyPlot(fill) {
    const plot = makeSlider("Money, mix " + fill.mix, fill.curve.length);
    const picture = makePicture();
    const scale = new MoneyScale(fill);
    scale.drawAxes(picture);
    const asked = scale.y(answer.input.service);
    picture.append(shape("path", { d: `M${LEFT} ${asked}H${LEFT + plotWidth()}`, class: "asked" }));
    picture.append(shape("text", { x: LEFT + plotWidth() + 6, y: asked + 4, class: "tick" }, "asked"));
    const places = fill.curve.map((point) => [scale.x(point.money), scale.y(point.promised)]);
    const path = places.map(([x, y], index) => (index === 0 ? `M${x.toFixed(1)} ${y.toFixed(1)}`
        : `H${x.toFixed(1)}V${y.toFixed(1)}`)).join("");
    const group = shape("g", { class: "curve c0" });
    group.append(shape("path", { d: path + `H${LEFT + plotWidth()}`, class: "line" }));
    picture.append(group);
    if (scale.hasNow) {
        const [x, y] = [scale.x(fill.money.now), scale.y(fill.now.promised)];
        picture.append(shape("path", { d: `M${x - MARK} ${y}l6 -6l6 6l-6 6z`, class: "now" }));
        addMark(picture, x, y, "now");
    }
    places.forEach(([x, y], index) => {
        const proposed = isProposed(fill, fill.curve[index]);
        picture.append(shape("circle", { cx: x, cy: y, r: proposed ? MARK : POINT,
            class: proposed ? "proposed" : "point" }));
        if (proposed) {
            addMark(picture, x, y, "proposed");
        }
    });
    picture.append(makeCursor());
    plot.append(picture);
    return Object.assign(plot, { fill, count: fill.curve.length, isMoney: true, page: 1,
        xAt: (index) => places[index][0], describe: (index) => describePoint(fill, index),
        valueText: (index) => withCurrency(fill.curve[index].money) });
}

function heldCurve(fill, place) {
    const whole = fill.cassettes[place].load;
    const { median, least, most } = fill.held.cassettes[place];
    const at = (counts, index) => xOf(index * held.step).toFixed(1) + " " + yOf(counts[index] / whole).toFixed(1);
    const along = median.map((_, index) => index);
    const line = (counts, order) => order.map((index) => at(counts, index)).join("L");
    const one = fill.cassettes[place];
    return { cassette: one.cassette, name: dispenser.cassettes[one.cassette].label || nameOf(one), path: "M" + line(median, along),
        share: median[timeCount - 1] / whole, x: xOf(lastTime),
        band: "M" + line(most, along) + "L" + line(least, along.slice().reverse()) + "z" };
}

function heldPlot(fill) {
    const plot = makeSlider("Time, mix " + fill.mix, timeCount);
    const picture = makePicture();
    drawAxes(picture);
    const curves = fill.cassettes.map((one, place) => (one.load > 0 ? heldCurve(fill, place) : null))
        .filter((curve) => curve !== null);
    placeLabels(curves);
    for (const curve of curves) {
        addCurve(picture, curve, shortLabel(curve.name))
            .prepend(shape("path", { d: curve.band, class: "band" }));
    }
    picture.append(makeCursor());
    plot.append(picture);
    return Object.assign(plot, { fill, count: timeCount, isMoney: false,
        page: Math.max(1, Math.round(SECONDS_IN_DAY / held.step)), xAt: (index) => xOf(index * held.step),
        describe: (index) => describeTime(fill, index), valueText: timeName });
}
