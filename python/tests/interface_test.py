"""The package over the component: what it has, gives, takes and refuses, and how long things live."""

from __future__ import annotations

import copy
import csv
import datetime
import inspect
import io
import json
import os
import pathlib
import pickle
import subprocess
import threading
import unittest
from decimal import Decimal
from typing import Any

import zrcreditbureau as zr

EXAMPLES = pathlib.Path(__file__).resolve().parents[2] / "examples"
DAY = datetime.date(2012, 6, 15)
# What is translated, as the command line is told it.
REPLIES = [
    ("AU", "VedaXMLAU", "consumer-enquiry", "vedaxml_au_adverse.xml"),
    ("AU", "B2BayAU", "consumer-enquiry", "b2bay_au.xml"),
    ("NZ", "VedaXMLNZ", "enquiry_individual", "vedaxml_nz_person.xml"),
    ("NZ", "B2BayNZ", "enquiry_individual", "b2bay_nz_individual.xml"),
    ("NZ", "B2BayNZ_V2", "enquiry_company_with_directors", "b2bay_nz_v2_company_directors.xml"),
]


def facade(country: str = "AU") -> zr.ZRCreditBureau:
    bureau = zr.ZRCreditBureau()
    assert bureau.Initialise(country)
    return bureau


def translated(
    country: str = "AU", service: str = "VedaXMLAU", product: str = "consumer-enquiry",
    file: str = "vedaxml_au_adverse.xml",
) -> zr.Response:
    bureau = facade(country)
    request = bureau.CreateRequest()
    request.ServiceName = service
    request.ProductId = product
    text = (EXAMPLES / file).read_text(encoding="utf-8")
    assert bureau.BuildResponse(request, ResponseDate=DAY, ResponseXML=text), bureau.ErrorMessage()
    return request.Response


def as_json(value: Any) -> Any:
    if isinstance(value, datetime.datetime):
        return value.date().isoformat() if value.time() == datetime.time() else value.isoformat()
    return value


class Translations(unittest.TestCase):
    def test_are_those_of_the_command_line(self) -> None:
        for country, service, product, file in REPLIES:
            with self.subTest(file):
                response = translated(country, service, product, file)
                command = [os.environ["ZR_PROGRAM"], "translate", str(EXAMPLES / file), "--service", service,
                           "--product", product, "--date", DAY.isoformat(), "--xslt-file-name="]
                told = subprocess.run([*command, "--format", "json"], capture_output=True, check=True).stdout
                expected = json.loads(told, parse_float=Decimal)["Response"]
                lines = expected.pop("ResponseElements")
                selections = expected.pop("CompanySelections")
                got: dict[str, Any] = {name: as_json(value) for name, value in response.summary().items()}
                got.update(ResponseXML=response.ResponseXML, ResponseHTML=response.ResponseHTML)
                self.assertEqual(got, expected)
                elements = response.ResponseElements
                self.assertEqual([dict(zip(elements.fields, row)) for row in elements.rows()], lines)
                self.assertEqual(response.CompanySelections.rows(), [tuple(row.values()) for row in selections])
                self.assertGreater(len(lines), 30)

    def test_read_the_same_in_every_way(self) -> None:
        elements = translated().ResponseElements
        rows = elements.rows()
        by_walk = [tuple(getattr(line, name) for name in elements.fields) for line in elements]
        by_item = [tuple(getattr(elements.Item(at), name) for name in elements.fields)
                   for at in range(1, elements.Count + 1)]
        columns = elements.columns()
        self.assertEqual(by_walk, rows)
        self.assertEqual(by_item, rows)
        self.assertEqual(list(zip(*columns.values())), rows)
        self.assertEqual(elements.rows("ResponseName"), [(name,) for name in columns["ResponseName"]])
        written = io.StringIO()
        csv.writer(written).writerows(rows)
        self.assertEqual([tuple(row) for row in csv.reader(io.StringIO(written.getvalue()))], rows)
        with self.assertRaises(AttributeError):
            elements.rows("ResponseNam")


class Description(unittest.TestCase):
    def test_every_member_is_there_with_its_help_and_signature(self) -> None:
        for row in zr.DESCRIPTION["classes"]:
            described = getattr(zr, row["name"])
            self.assertEqual(described.__doc__, row["meaning"])
            for member in row["members"]:
                with self.subTest(row["name"] + "." + member["name"]):
                    if member["name"] == "NewEnum":
                        self.assertTrue(callable(described.__iter__))
                        continue
                    found = inspect.getattr_static(described, member["name"])
                    self.assertTrue(found.__doc__.startswith(member["meaning"]))
                    if member["arguments"] or member["kind"] == "operation":
                        names = [argument["name"] for argument in member["arguments"]]
                        self.assertEqual(list(inspect.signature(found).parameters), ["self", *names])
            self.assertEqual(row["creatable"], hasattr(described, "_creates"))
        for row in zr.DESCRIPTION["enumerations"]:
            self.assertEqual({one.name: one.value for one in getattr(zr, row["name"])},
                             {one["name"]: one["value"] for one in row["values"]})

    def test_every_property_can_be_read(self) -> None:
        response = translated()
        with facade() as bureau:
            service = bureau.Services["VedaXMLAU"]
            product = service.Products[0]
            objects = [bureau, bureau.Services, bureau.CreateRequest(), response, response.ResponseElements,
                       response.ResponseElements[0], response.CompanySelections, service, product,
                       service.Products, product.ProductOptions, product.ProductOptions[0],
                       product.CodeTables, product.CodeTables[0], product.CodeTables[0][0],
                       zr.ZRXMLBuilder(), zr.ZRStringBuilder(), *bureau.Services]
            objects += facade("NZ").Services
            read = 0
            for one in objects:
                described = next(row for row in zr.DESCRIPTION["classes"] if row["name"] == type(one).__name__)
                for member in described["members"]:
                    if member["kind"].startswith("read") and member["name"] != "NewEnum":
                        getattr(one, member["name"])
                        read += 1
            self.assertGreater(read, 250)
            self.assertEqual({type(one).__name__ for one in objects} | {"CompanySelection"},
                             {row["name"] for row in zr.DESCRIPTION["classes"]})


class Values(unittest.TestCase):
    def test_come_back_as_they_were_given(self) -> None:
        request = facade().CreateRequest()
        when = datetime.datetime(1988, 2, 29, 13, 5, 59)
        for name, given, back in [
            ("LastName", "Ō'Sample \N{GRINNING FACE}\0", None),
            ("EnquiryAmount", Decimal("-922337203685477.5808"), None),
            ("EnquiryAmount", 15000, Decimal(15000)),
            ("DateOfBirth", when, None),
            ("DateOfBirth", DAY, datetime.datetime(2012, 6, 15)),
            ("DateOfBirth", None, None),
        ]:
            with self.subTest(name, given=given):
                setattr(request, name, given)
                self.assertEqual(getattr(request, name), given if back is None else back)
        request.OptionChecked["score"] = True
        request.OptionTag["score"] = "kept"
        self.assertIs(request.OptionChecked("SCORE"), True)
        self.assertEqual((request.OptionTag["score"], request.OptionChecked(OptionId="none")), ("kept", False))
        product = facade().ServiceProducts("VedaXMLAU")[0]  # type: ignore[index]
        self.assertIs(product.ProductType, zr.zreProductType.zreProductTypeEnquiry)
        builder = zr.ZRXMLBuilder()
        builder.EncodeOptions = 3  # type: ignore[assignment]
        self.assertEqual(builder.EncodeOptions, 3)

    def test_of_another_kind_are_refused(self) -> None:
        bureau: Any = facade()
        classes: Any = zr
        request = bureau.CreateRequest()
        with self.assertRaises(AttributeError):
            request.LastNam = "typing error"
        refusals: list[tuple[type[Exception], str, Any]] = [
            (TypeError, "Request.LastName must be str, not int", lambda: setattr(request, "LastName", 1)),
            (TypeError, "EnquiryAmount must be Decimal, not float", lambda: setattr(request, "EnquiryAmount", 1.5)),
            (ValueError, "four decimals", lambda: setattr(request, "EnquiryAmount", Decimal("0.00001"))),
            (ValueError, "", lambda: setattr(request, "EnquiryAmount", Decimal("NaN"))),
            (OverflowError, "range", lambda: setattr(request, "EnquiryAmount", 10**15)),
            (ValueError, "time zone",
             lambda: setattr(request, "DateOfBirth", datetime.datetime.now(datetime.timezone.utc))),
            (OverflowError, "-32768 to 32767", lambda: setattr(request, "XRMApplicantIndex", 32768)),
            (TypeError, "must be bool, not int", lambda: request.Clear(1)),
            (TypeError, "unexpected argument 'All'", lambda: request.Clear(All=True)),
            (TypeError, "two values", lambda: request.Clear(True, ClearAll=True)),
            (TypeError, "takes 1 arguments but 2", lambda: request.Clear(True, True)),
            (TypeError, "missing the argument 'Country'", lambda: bureau.Initialise()),
            (TypeError, "", lambda: bureau.ExecuteCreditEnquiry(bureau)),
            (TypeError, "of this package's classes", lambda: classes.Request.LastName.__get__(object())),
            (TypeError, "never created", zr.Request),
            (TypeError, "takes no arguments", lambda: zr.ZRCreditBureau("AU")),  # type: ignore[call-arg]
            (AttributeError, "", lambda: request.Application),
            (AttributeError, "", lambda: setattr(bureau, "Version", "6")),
            (AttributeError, "deleted", lambda: delattr(request, "LastName")),
            (UnicodeEncodeError, "", lambda: setattr(request, "LastName", "\udc80")),
            (TypeError, "pickle", lambda: pickle.dumps(bureau)),
            (TypeError, "pickle", lambda: copy.copy(request)),
        ]
        for raised, words, run in refusals:
            with self.subTest(words or raised), self.assertRaisesRegex(raised, words):
                run()

    def test_of_a_collection_are_found_by_position_and_key(self) -> None:
        bureau = facade()
        services = bureau.Services
        self.assertEqual([one.ServiceName for one in services], bureau.Services.List(True).split(","))
        self.assertEqual(services[0], services.Item(1))
        self.assertEqual((services[-1], services[0:1]), (services.Item(len(services)), [services[0]]))
        self.assertIn("vedaxmlau", services)
        self.assertNotIn("None", services)
        self.assertIn(services["VedaXMLAU"], services)
        elements = translated().ResponseElements
        self.assertIn(elements[-1], elements)
        anything: Any = elements
        missing: list[tuple[type[Exception], Any]] = [
            (KeyError, lambda: services["None"]),
            (IndexError, lambda: services[9]),
            (IndexError, lambda: services[-9]),
            (IndexError, lambda: elements[len(elements)]),
            (TypeError, lambda: anything["Service"]),
        ]
        for raised, run in missing:
            with self.assertRaises(raised):
                run()
        with self.assertRaises(zr.Error) as caught:
            services.Item("None")
        self.assertEqual(caught.exception.number, 5)
        self.assertTrue(caught.exception.description)


class Lifetimes(unittest.TestCase):
    def test_what_is_held_stays(self) -> None:
        bureau = facade()
        request = bureau.CreateRequest()
        request.ServiceName, request.ProductId = "VedaXMLAU", "consumer-enquiry"
        text = (EXAMPLES / "vedaxml_au_adverse.xml").read_text(encoding="utf-8")
        bureau.BuildResponse(request, DAY, text)
        elements, response = request.Response.ResponseElements, request.Response
        line, walk = elements[3], iter(elements)
        product = bureau.Services[0].Products["consumer-enquiry"]
        held = elements.rows(), response.summary(), product.ProductId
        self.assertEqual((response, hash(response)), (request.Response, hash(request.Response)))
        clean = (EXAMPLES / "vedaxml_au_clean.xml").read_text(encoding="utf-8")
        self.assertTrue(bureau.BuildResponse(request, DAY, clean))
        self.assertNotEqual(response, request.Response)
        bureau.Dispose()
        del bureau, request
        self.assertEqual((elements.rows(), response.summary(), product.ProductId), held)
        del elements, response
        self.assertEqual(tuple(getattr(line, name) for name in zr.ResponseElements.fields), held[0][3])
        self.assertEqual(len(list(walk)), len(held[0]))

    def test_rounds_leave_memory_flat(self) -> None:
        def size() -> int:
            return int(pathlib.Path("/proc/self/statm").read_text().split()[1]) * 4

        rounds = int(os.environ.get("ZR_ROUNDS", "600"))
        for _ in range(200):
            list(translated().ResponseElements)
        before = size()
        for _ in range(rounds):
            response = translated()
            list(response.ResponseElements)
            response.summary()
            try:
                response.ResponseElements.Item(0)
            except zr.Error:
                pass
        self.assertLess(size() - before, 2048, "KiB")

    def test_threads_have_a_facade_each_or_take_turns(self) -> None:
        expected = translated().ResponseElements.rows()
        shared = facade()
        text = (EXAMPLES / "vedaxml_au_adverse.xml").read_text(encoding="utf-8")
        failures: list[Any] = []

        def own() -> None:
            for _ in range(20):
                if translated().ResponseElements.rows() != expected:
                    failures.append("own")

        def together() -> None:
            for _ in range(20):
                request = shared.CreateRequest()
                request.ServiceName, request.ProductId = "VedaXMLAU", "consumer-enquiry"
                shared.BuildResponse(request, DAY, text)
                if request.Response.ResponseElements.rows() != expected:
                    failures.append("together")

        threads = [threading.Thread(target=run) for run in (own, together) * 4]
        for thread in threads:
            thread.start()
        for thread in threads:
            thread.join()
        self.assertEqual(failures, [])


if __name__ == "__main__":
    unittest.main()
